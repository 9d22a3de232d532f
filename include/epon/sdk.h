/* SPDX-License-Identifier: Apache-2.0 */
/*
 * What the command library needs from the OLT SDK. One header per family.
 *
 * Unless a header says otherwise, an operation returns a signed 16-bit code (0 for success, else a code of the
 * family's return-code table), may be called from any thread, and keeps no pointer that it was given.
 * OLT indices are 0..15, LLID and ONU indices 0..254; 4095 is the broadcast LLID.
 */
#ifndef EPON_SDK_H
#define EPON_SDK_H

#include <epon/sdk/auth_list.h>
#include <epon/sdk/ctc_capabilities.h>
#include <epon/sdk/ctc_dba_report.h>
#include <epon/sdk/ctc_encryption.h>
#include <epon/sdk/ctc_events.h>
#include <epon/sdk/ctc_identity.h>
#include <epon/sdk/ctc_loid.h>
#include <epon/sdk/ctc_management_object.h>
#include <epon/sdk/ctc_multi_llid.h>
#include <epon/sdk/ctc_power_save.h>
#include <epon/sdk/ctc_protection.h>
#include <epon/sdk/ctc_reset.h>
#include <epon/sdk/ctc_stack.h>
#include <epon/sdk/ctc_tx_power.h>
#include <epon/sdk/dba_control.h>
#include <epon/sdk/dot1x.h>
#include <epon/sdk/encryption_direction.h>
#include <epon/sdk/events.h>
#include <epon/sdk/gpio.h>
#include <epon/sdk/grants.h>
#include <epon/sdk/i2c_register.h>
#include <epon/sdk/led.h>
#include <epon/sdk/link_test.h>
#include <epon/sdk/llid.h>
#include <epon/sdk/llid_encryption.h>
#include <epon/sdk/log.h>
#include <epon/sdk/mdio.h>
#include <epon/sdk/mka.h>
#include <epon/sdk/mng_vlan.h>
#include <epon/sdk/oam_frames.h>
#include <epon/sdk/olt.h>
#include <epon/sdk/olt_loopback.h>
#include <epon/sdk/olt_modes.h>
#include <epon/sdk/onu.h>
#include <epon/sdk/onu_cli.h>
#include <epon/sdk/onu_deregister.h>
#include <epon/sdk/onu_firmware.h>
#include <epon/sdk/onu_loopback.h>
#include <epon/sdk/optics.h>
#include <epon/sdk/pon_clock.h>
#include <epon/sdk/pon_transmission.h>
#include <epon/sdk/post_mortem.h>
#include <epon/sdk/remote_alarms.h>
#include <epon/sdk/remote_device_mgmt.h>
#include <epon/sdk/remote_encryption.h>
#include <epon/sdk/remote_fec.h>
#include <epon/sdk/remote_frame_processing.h>
#include <epon/sdk/remote_mp_application.h>
#include <epon/sdk/remote_mpcp.h>
#include <epon/sdk/remote_oam_api.h>
#include <epon/sdk/remote_oam_statistics.h>
#include <epon/sdk/remote_periph.h>
#include <epon/sdk/remote_rstp_ldp.h>
#include <epon/sdk/remote_send_file.h>
#include <epon/sdk/remote_uni_mac.h>
#include <epon/sdk/self_test.h>
#include <epon/sdk/send_frame.h>
#include <epon/sdk/simple_operation.h>
#include <epon/sdk/timeouts.h>
#include <epon/sdk/uart.h>
#include <epon/sdk/xaui_redundancy.h>

#endif
