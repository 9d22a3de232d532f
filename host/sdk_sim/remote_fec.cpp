// SPDX-License-Identifier: Apache-2.0
// The ONU's end of forward error correction.
#include "host/sdk_sim/remote_fec.h"

#include "host/sdk_sim/remote_operation.h"

namespace sdk_sim {

namespace {

const Operation set_configuration("REMOTE_NEPONU_set_forward_error_correction_configuration", REMOTE_MANAGEMENT);
const Operation get_configuration("REMOTE_NEPONU_get_forward_error_correction_configuration", REMOTE_MANAGEMENT);

bool receives_10g(const Onu& onu)
{
    return onu.rate != OnuRate::Rate1G;
}

bool sends_10g(const Onu& onu)
{
    return onu.rate == OnuRate::Rate10G;
}

bool is_received_corrected(const Onu& onu)
{
    const RemoteFec& fec = onu.configuration.remote_fec;
    if (receives_10g(onu)) return true;
    return fec.rx_auto != 0 ? fec_mode(onu) != LLID_FEC_OFF : fec.rx_enable != 0;
}

} // namespace

} // namespace sdk_sim

using namespace sdk_sim;

int16_t REMOTE_NEPONU_set_forward_error_correction_configuration(int16_t olt_id, int16_t onu_id, uint8_t rx_auto,
                                                                 uint8_t rx_enable, uint8_t tx_enable)
{
    const auto arguments = in(olt_id, onu_id, rx_auto, rx_enable, tx_enable);
    return set_remote(set_configuration, olt_id, onu_id, arguments, [&](Network&, Olt&, Onu& onu) {
        if (rx_auto > 1 || rx_enable > 1 || tx_enable > 1) return PARAMETER_ERROR;
        if (receives_10g(onu) && rx_auto == 0 && rx_enable == 0) return BAD_CONFIGURATION;
        if (sends_10g(onu) && tx_enable == 0) return BAD_CONFIGURATION;
        onu.configuration.remote_fec = {rx_auto, rx_enable, tx_enable};
        return SUCCESS;
    });
}

int16_t REMOTE_NEPONU_get_forward_error_correction_configuration(int16_t olt_id, int16_t onu_id, uint8_t* rx_auto,
                                                                 uint8_t* rx_enable, uint8_t* tx_enable)
{
    const auto results = out(rx_auto, rx_enable, tx_enable);
    return ask_remote(get_configuration, olt_id, onu_id, in(olt_id, onu_id), results, [&](Network&, Olt&, Onu& onu) {
        *rx_auto = onu.configuration.remote_fec.rx_auto;
        *rx_enable = is_received_corrected(onu);
        *tx_enable = sends_10g(onu) || onu.configuration.remote_fec.tx_enable != 0;
        return SUCCESS;
    });
}
