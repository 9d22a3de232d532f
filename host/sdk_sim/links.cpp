// SPDX-License-Identifier: Apache-2.0
// The links of the network, as the host shows them.
#include "host/sdk_sim/model.h"
#include "host/sdk_sim/sdk_sim.h"
#include "host/sdk_sim/values.h"

namespace sdk_sim {

namespace {

const char* mode_name(std::int32_t mode)
{
    switch (mode) {
    case ONU_MODE_REGISTERED:
        return "registered";
    case ONU_MODE_REGISTERED_UNAUTHORIZED:
        return "unauthorized";
    case ONU_MODE_DISCOVERED:
        return "discovered";
    default:
        return "unregistered";
    }
}

const char* rate_name(OnuRate rate)
{
    static constexpr const char* names[] = {"1g/1g", "10g/1g", "10g/10g"};
    return names[static_cast<std::size_t>(rate)];
}

} // namespace

std::vector<OltDescription> olts()
{
    std::vector<OltDescription> all;
    const ModelLock network;
    for (const Olt& olt : network->olts) {
        if (!olt.is_present) continue;
        OltDescription description{olt.id, "", olt.onus.size(), count_registered(olt)};
        append_mac(&description.mac, olt.mac.data());
        all.push_back(std::move(description));
    }
    return all;
}

std::vector<LinkDescription> links()
{
    std::vector<LinkDescription> all;
    const ModelLock network;
    for (const Olt& olt : network->olts) {
        if (!olt.is_present) continue;
        for (const auto& [id, onu] : olt.onus) {
            LinkDescription link{olt.id, id, "", mode_name(onu.mode), rate_name(onu.rate), onu.rtt};
            append_mac(&link.mac, onu.mac.data());
            all.push_back(std::move(link));
        }
    }
    return all;
}

} // namespace sdk_sim
