// SPDX-License-Identifier: Apache-2.0
// What the engine must know of the console's nodes: where "exit" leads, how prompts end, where raw lines go.
#pragma once

void install_node_rules();

// "onu" for ONU_NODE: the node record's name without "_node"; null for an id that is not used.
const char* node_name(int node);
