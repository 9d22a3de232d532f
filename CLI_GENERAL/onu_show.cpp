// SPDX-License-Identifier: Apache-2.0
#include "CLI_GENERAL/onu_show.h"

namespace epon {

void install(std::initializer_list<OnuShow*> shows, NodeSet nodes)
{
    for (OnuShow* show : shows) {
        install({{&show->by_index, nodes}, {&show->in_onu_node, in(ONU_NODE)}});
        if (show->by_mac.string != nullptr) install({{&show->by_mac, nodes}});
    }
}

} // namespace epon
