// SPDX-License-Identifier: Apache-2.0
// Power supply of an ONU's optical transmitters: it silences an ONU that disturbs the others, for a time or for good.
// The serial number names the ONU that is to obey. In the OLT node the order goes to all ONUs, so that one without a
// registration hears it, too.
#include "CTC_STACK_CLI/tx_power.h"

#include <cstring>

#include "CLI_GENERAL/arguments.h"
#include "CLI_GENERAL/command.h"
#include "CTC_STACK_CLI/onu_report.h"

using namespace epon;

namespace {

constexpr Word optical_words[] = {
    {"active", CTC_OPTICAL_ACTIVE}, {"standby", CTC_OPTICAL_STANDBY}, {"both", CTC_OPTICAL_BOTH}};
constexpr WordTable optical = {"optical", optical_words};

constexpr int WORDS_OF_ONU_FORM = 4;

// Seconds of silence, or a word for one of its bounds.
bool read_action(vty* session, const char* text, uint16_t* action)
{
    *action = CTC_TX_REENABLE;
    if (strcmp(text, "reenable") == 0) return true;
    *action = CTC_TX_SHUTDOWN_PERMANENT;
    if (strcmp(text, "shutdown_permanent") == 0) return true;
    return read_number(session, text, unsigned_16("action"), action);
}

} // namespace

int onu_tx_power_supply_control(cmd_element*, vty* session, int argc, char** argv)
{
    const bool is_onu_form = argc == WORDS_OF_ONU_FORM;
    OnuTarget onu = {session->olt_id, BROADCAST_LLID};
    uint16_t action;
    uint8_t serial_number[6];
    int32_t transmitter;
    int32_t broadcast = 1;
    int result;
    if (is_onu_form && !read_session_target(session, &onu, &result)) return result;
    if (!read_action(session, argv[0], &action)) return -1;
    if (read_mac(session, argv[1], "MAC address", serial_number) != MacResult::Read) return -1;
    if (!read_word(session, argv[2], "optical", optical, &transmitter)) return -1;
    if (is_onu_form && !read_word(session, argv[3], "broadcast", true_false, &broadcast)) return -1;
    return report_ctc(session, CTC_STACK_onu_tx_power_supply_control(onu.olt_id, onu.onu_id, serial_number, transmitter,
                                                                     action, broadcast));
}

static constinit cmd_element onu_tx_power_supply_control_cmd = command(
    "ctc onu-tx-power-supply-control action (reenable|<1-65534>|shutdown_permanent) onu-sn AA-BB-CC-DD-EE-FF optical "
    "(active|standby|both) broadcast (true|false)",
    onu_tx_power_supply_control,
    "Management of ONUs by the CTC extension of OAM\n"
    "Power supply of the ONU's optical transmitters\n"
    "What becomes of it\n"
    "reenable: on again; <1-65534>: off for so many seconds; shutdown_permanent: off until it is reenabled, also over "
    "restarts\n"
    "Serial number of the ONU that is to obey\n"
    "MAC address of the ONU, six hexadecimal fields\n"
    "Which of its transmitters\n"
    "active: the working one, without which the ONU is lost; standby: the spare one; both: all\n"
    "Whom the order is sent to\n"
    "true: all ONUs of the OLT hear it, and none answers; false: this ONU alone\n");

static constinit cmd_element onu_tx_power_supply_control_bc_cmd = command(
    "ctc onu-tx-power-supply-control-bc action (reenable|<1-65534>|shutdown_permanent) onu-sn AA-BB-CC-DD-EE-FF "
    "optical "
    "(active|standby|both)",
    onu_tx_power_supply_control,
    "Management of ONUs by the CTC extension of OAM\n"
    "Power supply of the optical transmitters of an ONU, registered or not; all ONUs of this OLT hear it\n"
    "What becomes of it\n"
    "reenable: on again; <1-65534>: off for so many seconds; shutdown_permanent: off until it is reenabled, also over "
    "restarts\n"
    "Serial number of the ONU that is to obey\n"
    "MAC address of the ONU, six hexadecimal fields\n"
    "Which of its transmitters\n"
    "active: the working one, without which the ONU is lost; standby: the spare one; both: all\n");

namespace epon {

void install_ctc_tx_power()
{
    install({{&onu_tx_power_supply_control_cmd, in(ONU_NODE)}, {&onu_tx_power_supply_control_bc_cmd, in(OLT_NODE)}});
}

} // namespace epon
