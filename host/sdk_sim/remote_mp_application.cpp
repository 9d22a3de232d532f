// SPDX-License-Identifier: Apache-2.0
// The MLD application of an ONU: while it runs, it joins the group that its user listens to.
#include "host/sdk_sim/remote_mp_application.h"

#include <algorithm>

#include "host/sdk_sim/events.h"
#include "host/sdk_sim/link_operation.h"
#include "host/sdk_sim/remote_operation.h"

namespace sdk_sim {

template <>
inline constexpr auto record_fields<REMOTE_mld_version> = std::tuple(record_field("major", &REMOTE_mld_version::major),
                                                                     record_field("minor", &REMOTE_mld_version::minor),
                                                                     record_field("build", &REMOTE_mld_version::build));

namespace {

const Operation get_mld_version("REMOTE_NEPONU_mp_mld_get_version", REMOTE_MANAGEMENT);
const Operation mld_init("REMOTE_NEPONU_mp_mld_init", REMOTE_MANAGEMENT);
const Operation mld_terminate("REMOTE_NEPONU_mp_mld_terminate", REMOTE_MANAGEMENT);

constexpr Milliseconds QUERY_TIME_MS = 1000; // until the user has answered the first query

void raise_group(const Olt& olt, const Onu& onu, bool joined)
{
    if (!tells_of(onu, joined ? REMOTE_ALARM_MLD_JOIN : REMOTE_ALARM_MLD_DONE)) return;
    MulticastGroupChangedEvent event{};
    event.llid = onu.id;
    constexpr std::uint8_t group[] = {0x33, 0x33, 0x00, 0x01, 0x00, 0x00}; // ff0e::1:xx of the user's program
    std::copy(std::begin(group), std::end(group), event.group);
    event.group[5] = static_cast<std::uint8_t>(onu.id);
    event.joined = joined ? 1 : 0;
    raise(EVENT_MULTICAST_GROUP_CHANGED, olt.id, event);
}

void join(const Network& network, const Olt& olt, Onu& onu)
{
    MldApplication& mld = onu.configuration.mld;
    if (mld.joins_at != network.now) return; // it was stopped meanwhile
    mld.has_joined = true;
    raise_group(olt, onu, true);
}

} // namespace

} // namespace sdk_sim

using namespace sdk_sim;

int16_t REMOTE_NEPONU_mp_mld_get_version(int16_t olt_id, int16_t onu_id, REMOTE_mld_version* version)
{
    return get_remote(get_mld_version, olt_id, onu_id, version, [](Network&, const Onu& onu) -> REMOTE_mld_version {
        const auto& number = onu.device.mld_version.number;
        return {number[0], number[1], number[2]};
    });
}

int16_t REMOTE_NEPONU_mp_mld_init(int16_t olt_id, int16_t onu_id)
{
    return set_remote(mld_init, olt_id, onu_id, in(olt_id, onu_id), [](Network& network, const Olt& olt, Onu& onu) {
        if (onu.configuration.mld.is_running) return ALREADY_EXISTS;
        onu.configuration.mld = {true, false, network.now + QUERY_TIME_MS};
        after_on_link(network, olt, onu.id, QUERY_TIME_MS, join);
        return SUCCESS;
    });
}

int16_t REMOTE_NEPONU_mp_mld_terminate(int16_t olt_id, int16_t onu_id)
{
    return set_remote(mld_terminate, olt_id, onu_id, in(olt_id, onu_id), [](Network&, const Olt& olt, Onu& onu) {
        MldApplication& mld = onu.configuration.mld;
        if (!mld.is_running) return BAD_CONFIGURATION;
        if (mld.has_joined) raise_group(olt, onu, false);
        mld = {};
        return SUCCESS;
    });
}
