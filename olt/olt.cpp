// SPDX-License-Identifier: Apache-2.0
#include <initializer_list>

#include "olt/auth_list.h"
#include "olt/dba_control.h"
#include "olt/dot1x.h"
#include "olt/encryption_direction.h"
#include "olt/gpio.h"
#include "olt/grants.h"
#include "olt/i2c_register.h"
#include "olt/led.h"
#include "olt/llid.h"
#include "olt/mac_address_modes.h"
#include "olt/mdio.h"
#include "olt/mka.h"
#include "olt/mng_vlan.h"
#include "olt/modes.h"
#include "olt/olt.h"
#include "olt/olt_loopback.h"
#include "olt/onu_deregister.h"
#include "olt/optics.h"
#include "olt/pon_clock.h"
#include "olt/pon_transmission.h"
#include "olt/post_mortem.h"
#include "olt/self_test.h"
#include "olt/send_frame.h"
#include "olt/simple_operation.h"
#include "olt/timeouts.h"
#include "olt/uart.h"

void CLI_OLT_cmd_init()
{
    static constinit bool is_installed = false;
    if (is_installed) return;
    is_installed = true;
    epon::install_olt_nodes();
    epon::install_olt_parameters();
    epon::install_olt_version();
    epon::install_olt_reset();
    epon::install_llid_node();
    epon::install_gpio();
    epon::install_i2c_register();
    epon::install_led();
    epon::install_mdio();
    epon::install_post_mortem();
    epon::install_self_test();
    epon::install_uart();
    epon::install_olt_modes();
    epon::install_mac_address_modes();
    epon::install_timeouts();
    epon::install_auth_list();
    epon::install_dba_control();
    epon::install_dot1x();
    epon::install_grants();
    epon::install_mka();
    epon::install_olt_loopback();
    epon::install_onu_deregister();
    epon::install_send_frame();
    epon::install_mng_vlan();
    epon::install_pon_clock();
    epon::install_pon_transmission();
    epon::install_simple_operation();
    epon::install_encryption_direction();
    epon::install_authorize();
    epon::install_encryption();
    epon::install_link_test();
    epon::install_oam_frame_rate();
    epon::install_send_oam();
    epon::install_optics();
    CLI_mode1_cmd_init();
    for (const int node : {OLT_NODE, NEP5400_OLT_NODE, LLID_NODE, NEP5400_LLID_NODE, BC_LLID_NODE, NEP5400_BC_LLID_NODE,
                           OLT_PON_NODE, NEP5400_OLT_PON_NODE, CNI_NODE, NEP5400_CNI_NODE, OLT_FW_CRAFT_NODE}) {
        RBX_install_default(node);
    }
}
