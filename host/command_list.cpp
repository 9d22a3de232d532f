// SPDX-License-Identifier: Apache-2.0
#include "host/command_list.h"

#include <dlfcn.h>
#include <string>

#include "host/engine/engine_host.h"
#include "host/node_rules.h"

namespace {

// Handlers are exported under their own names.
const char* handler_name(cmd_handler* handler)
{
    Dl_info info;
    const bool is_known = dladdr(reinterpret_cast<void*>(handler), &info) != 0 && info.dli_sname != nullptr;
    return is_known ? info.dli_sname : "?";
}

std::string with_visible_tabs(const char* grammar)
{
    std::string text;
    for (; *grammar != '\0'; ++grammar) {
        if (*grammar == '\t') {
            text += "\\t";
        } else {
            text += *grammar;
        }
    }
    return text;
}

} // namespace

void list_commands(std::ostream& out)
{
    engine::for_each_element(engine::Origin::Library, [&](int node, const cmd_element& element) {
        out << node_name(node) << '\t' << handler_name(element.func) << '\t' << with_visible_tabs(element.string)
            << '\n';
    });
}
