// SPDX-License-Identifier: Apache-2.0
// What an OLT's firmware tells about its state for an analysis after a failure, line by line.
#include "olt/post_mortem.h"

#include <cstring>

#include "CLI_GENERAL/arguments.h"
#include "CLI_GENERAL/command.h"
#include "CLI_GENERAL/output.h"

using namespace epon;

namespace {

// Prints the lines of a text, which it takes apart in place.
void print_lines(vty* session, char* text)
{
    while (*text != '\0') {
        size_t length = strcspn(text, "\n");
        char* next = text + length + (text[length] == '\n' ? 1 : 0);
        if (length > 0 && text[length - 1] == '\r') --length;
        clean_device_text(text, length + 1, text, length);
        RBX_vty_out(session, "%s%s", text, VTY_NEWLINE(session));
        text = next;
    }
}

} // namespace

int show_post_mortem(cmd_element*, vty* session, int argc, char** argv)
{
    OltArguments arguments(session, argc, argv, 1);
    int16_t olt_id;
    if (!arguments.read_olt(&olt_id)) return -1;
    char text[POST_MORTEM_TEXT_SIZE];
    const int16_t code = NEP_get_post_mortem(olt_id, text);
    if (code != 0) return report(session, code);
    text[sizeof text - 1] = '\0';
    print_olt_id(session, olt_id);
    print_lines(session, text);
    return 0;
}

static constinit cmd_element show_post_mortem_global_cmd =
    command("show post-mortem OLT_INDEX", show_post_mortem,
            "Show settings and state\n"
            "The firmware's report for an analysis after a failure\n"
            "Index of the OLT, 0-15, decimal or with 0x hexadecimal\n");

static constinit cmd_element show_post_mortem_cmd = command("show post-mortem", show_post_mortem,
                                                            "Show settings and state\n"
                                                            "The firmware's report for an analysis after a failure\n");

namespace epon {

void install_post_mortem()
{
    install({{&show_post_mortem_global_cmd, in(CONFIG_NODE)}, {&show_post_mortem_cmd, in(OLT_NODE)}});
}

} // namespace epon
