// SPDX-License-Identifier: Apache-2.0
// Forward error correction at the ONU's end of its link.
#include "REMOTE_MANAGEMENT_CLI/fec.h"

#include <cstddef>

#include "CLI_GENERAL/onu_show.h"
#include "REMOTE_MANAGEMENT_CLI/onu_report.h"

using namespace epon;

namespace {

struct Fec {
    uint8_t rx_auto, rx_enable, tx_enable;
};

constexpr Field fec_fields[] = {
    {"fec_rx_auto", FieldFormat::Uint8Word, offsetof(Fec, rx_auto), &enable_disable_capital},
    {"fec_rx_enable", FieldFormat::Uint8Word, offsetof(Fec, rx_enable), &enable_disable_capital},
    {"fec_tx_enable", FieldFormat::Uint8Word, offsetof(Fec, tx_enable), &enable_disable_capital},
};

int16_t get_fec(int16_t olt_id, int16_t onu_id, Fec* fec)
{
    return REMOTE_NEPONU_get_forward_error_correction_configuration(olt_id, onu_id, &fec->rx_auto, &fec->rx_enable,
                                                                    &fec->tx_enable);
}

} // namespace

int show_remote_fec_configuration(cmd_element*, vty* session, int argc, char** argv)
{
    return show_remote(session, argc, argv, get_fec, fec_fields);
}

int remote_fec_configuration(cmd_element*, vty* session, int, char** argv)
{
    OnuTarget onu;
    int result;
    Fec fec;
    if (!read_session_target(session, &onu, &result)) return result;
    if (!read_word(session, argv[0], "fec_rx_auto", enable_disable, &fec.rx_auto)) return -1;
    if (!read_word(session, argv[1], "fec_rx_enable", enable_disable, &fec.rx_enable)) return -1;
    if (!read_word(session, argv[2], "fec_tx_enable", enable_disable, &fec.tx_enable)) return -1;
    return report_remote(session, REMOTE_NEPONU_set_forward_error_correction_configuration(
                                      onu.olt_id, onu.onu_id, fec.rx_auto, fec.rx_enable, fec.tx_enable));
}

static constinit OnuShow show_remote_fec_configuration_cmd =
    remote_show<"mac fec-configuration", "The ONU's end of its link\n"
                                         "Forward error correction, in each direction\n">(
        show_remote_fec_configuration);

static constinit cmd_element remote_fec_configuration_cmd =
    command("remote mac fec-configuration fec-rx-auto (disable|enable) fec-rx (disable|enable) fec-tx (disable|enable)",
            remote_fec_configuration,
            "Remote management: the ONU is asked by OAM\n"
            "The ONU's end of its link\n"
            "Forward error correction, in each direction\n"
            "Whether the ONU finds out by itself if what it receives can be corrected\n"
            "disable: it does as the next word says; enable: it finds out\n"
            "What the ONU receives\n"
            "disable: it is not corrected; enable: it is corrected\n"
            "What the ONU sends\n"
            "disable: it cannot be corrected; enable: it can be corrected\n");

namespace epon {

void install_remote_fec()
{
    install({&show_remote_fec_configuration_cmd});
    install({{&remote_fec_configuration_cmd, in(ONU_NODE)}});
}

} // namespace epon
