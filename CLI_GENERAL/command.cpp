// SPDX-License-Identifier: Apache-2.0
#include "CLI_GENERAL/command.h"

#include <bit>

namespace epon {

// The board's engine reads these records by position.
static_assert(sizeof(void*) != 4 || sizeof(cmd_element) == 36);

void install(std::initializer_list<Installation> commands)
{
    for (const Installation& command : commands) {
        for (NodeSet left = command.nodes; left != 0; left &= left - 1)
            RBX_install_element(std::countr_zero(left), command.element);
    }
}

} // namespace epon
