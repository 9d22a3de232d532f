// SPDX-License-Identifier: Apache-2.0
#include "CLI_GENERAL/command.h"

namespace epon {

// The board's engine reads these records by position.
static_assert(sizeof(void*) != 4 || sizeof(cmd_element) == 36);

void install(std::initializer_list<Installation> commands)
{
    for (const Installation& command : commands) {
        for (int node = 0; node < NODE_ID_LIMIT; ++node) {
            if ((command.nodes & in(node)) != 0) RBX_install_element(node, command.element);
        }
    }
}

} // namespace epon
