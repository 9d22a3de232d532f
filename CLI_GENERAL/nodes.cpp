// SPDX-License-Identifier: Apache-2.0
// The nodes of the console: where commands live, and what the prompt says there. The two DBA nodes and
// that of an ONU's own command line belong to their modules. The prompts of the ONU, LLID, ONU-PON and UNI nodes are
// completed by the engine.
#include <initializer_list>

#include "CLI_GENERAL/general.h"

namespace {

constinit cmd_node auth_node = {AUTH_NODE, "Password: ", 0, nullptr, nullptr};
constinit cmd_node view_node = {VIEW_NODE, "%s> ", 0, nullptr, nullptr};
constinit cmd_node velora_node = {VELORA_NODE, "VNS CLI> ", 0, nullptr, nullptr};
constinit cmd_node velora_debug_node = {VELORA_DEBUG_NODE, "DEBUG CLI> ", 0, nullptr, nullptr};
constinit cmd_node auth_enable_node = {AUTH_ENABLE_NODE, "Password: ", 0, nullptr, nullptr};
constinit cmd_node enable_node = {ENABLE_NODE, "%s# ", 0, nullptr, nullptr};
constinit cmd_node config_node = {CONFIG_NODE, "%s(config)# ", 1, nullptr, nullptr};
constinit cmd_node olt_node = {OLT_NODE, "%s(OLT%d)# ", 0, nullptr, nullptr};
constinit cmd_node nep5400_olt_node = {NEP5400_OLT_NODE, "%s(OLT%d)# ", 0, nullptr, nullptr};
constinit cmd_node onu_node = {ONU_NODE, "%s(OLT%d ONU", 0, nullptr, nullptr};
constinit cmd_node llid_node = {LLID_NODE, "%s(OLT%d LLID", 0, nullptr, nullptr};
constinit cmd_node nep5400_llid_node = {NEP5400_LLID_NODE, "%s(OLT%d LLID", 0, nullptr, nullptr};
constinit cmd_node bc_llid_node = {BC_LLID_NODE, "%s(OLT%d LLID-BROADCAST)# ", 0, nullptr, nullptr};
constinit cmd_node nep5400_bc_llid_node = {NEP5400_BC_LLID_NODE, "%s(OLT%d LLID-BROADCAST)# ", 0, nullptr, nullptr};
constinit cmd_node olt_pon_node = {OLT_PON_NODE, "%s(OLT%d PON)# ", 0, nullptr, nullptr};
constinit cmd_node nep5400_olt_pon_node = {NEP5400_OLT_PON_NODE, "%s(OLT%d PON)# ", 0, nullptr, nullptr};
constinit cmd_node cni_node = {CNI_NODE, "%s(OLT%d CNI)# ", 0, nullptr, nullptr};
constinit cmd_node nep5400_cni_node = {NEP5400_CNI_NODE, "%s(OLT%d CNI)# ", 0, nullptr, nullptr};
constinit cmd_node olt_fw_craft_node = {OLT_FW_CRAFT_NODE, "%s(OLT%d FW_CRAFT)# ", 0, nullptr, nullptr};
constinit cmd_node onu_pon_node = {ONU_PON_NODE, "%s(OLT%d ONU", 0, nullptr, nullptr};
constinit cmd_node uni_node = {UNI_NODE, "%s(OLT%d ONU", 0, nullptr, nullptr};

} // namespace

namespace epon {

void install_nodes()
{
    for (cmd_node* node : {&auth_node,         &view_node,
                           &velora_node,       &velora_debug_node,
                           &auth_enable_node,  &enable_node,
                           &config_node,       &olt_node,
                           &nep5400_olt_node,  &onu_node,
                           &llid_node,         &nep5400_llid_node,
                           &bc_llid_node,      &nep5400_bc_llid_node,
                           &olt_pon_node,      &nep5400_olt_pon_node,
                           &cni_node,          &nep5400_cni_node,
                           &olt_fw_craft_node, &onu_pon_node,
                           &uni_node}) {
        RBX_install_node(node, nullptr);
    }
    // The password nodes have no commands; the OLT and ONU modules give their own nodes the engine's commands.
    for (const int node : {VIEW_NODE, VELORA_NODE, VELORA_DEBUG_NODE, ENABLE_NODE, CONFIG_NODE})
        RBX_install_default(node);
}

} // namespace epon
