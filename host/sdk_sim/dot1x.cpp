// SPDX-License-Identifier: Apache-2.0
// Port access control of an OLT's ONUs.
#include "host/sdk_sim/dot1x.h"

#include <cstring>

#include "host/sdk_sim/gate.h"

namespace sdk_sim {

namespace {

const Operation set_configuration("NEP_set_802_1x_configuration", GENERAL);

constexpr uint16_t REQUESTS_MAX = 10;

bool is_configuration(const OLT_802_1x_configuration& configuration)
{
    const std::size_t length = strnlen(configuration.shared_secret, DOT1X_KEY_SIZE);
    return configuration.enabled == 1 && length > 0 && length < DOT1X_KEY_SIZE && configuration.tx_period > 0 &&
           configuration.supplicant_timeout > 0 && configuration.server_timeout > 0 &&
           configuration.max_reauthentications > 0 && configuration.max_requests > 0 &&
           configuration.max_requests <= REQUESTS_MAX;
}

} // namespace

} // namespace sdk_sim

using namespace sdk_sim;

int16_t NEP_set_802_1x_configuration(int16_t olt_id, const OLT_802_1x_configuration* configuration)
{
    return on_olt(set_configuration, olt_id, in(olt_id, configuration), out(), [&](Olt& olt) {
        if (configuration->enabled == 0) {
            olt.configuration.dot1x = {};
            return SUCCESS;
        }
        if (!is_configuration(*configuration)) return PARAMETER_ERROR;
        olt.configuration.dot1x = *configuration;
        return SUCCESS;
    });
}
