// SPDX-License-Identifier: Apache-2.0
// How the records of port access control show in the journal.
#pragma once

#include <epon/sdk/dot1x.h>

#include "host/sdk_sim/values.h"

namespace sdk_sim {

template <>
inline constexpr auto record_fields<OLT_802_1x_configuration> =
    std::tuple(record_field("enabled", &OLT_802_1x_configuration::enabled),
               record_field("shared_secret", &OLT_802_1x_configuration::shared_secret),
               record_field("quiet_period", &OLT_802_1x_configuration::quiet_period),
               record_field("tx_period", &OLT_802_1x_configuration::tx_period),
               record_field("supplicant_timeout", &OLT_802_1x_configuration::supplicant_timeout),
               record_field("server_timeout", &OLT_802_1x_configuration::server_timeout),
               record_field("max_reauthentications", &OLT_802_1x_configuration::max_reauthentications),
               record_field("max_requests", &OLT_802_1x_configuration::max_requests));

} // namespace sdk_sim
