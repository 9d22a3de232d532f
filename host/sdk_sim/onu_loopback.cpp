// SPDX-License-Identifier: Apache-2.0
// Loopbacks of ONUs.
#include "host/sdk_sim/onu_loopback.h"

#include "host/sdk_sim/events.h"
#include "host/sdk_sim/link_operation.h"

namespace sdk_sim {

namespace {

const Operation set_standard_onu_loopback("NEP_set_standard_onu_loopback", GENERAL);
const Operation get_standard_onu_loopback("NEP_get_standard_onu_loopback", GENERAL);
const Operation set_onu_test_mode("NEP_TESTING_set_onu_test_mode", GENERAL);

constexpr std::int32_t TIMEOUT_LIMIT = 65535;

void raise_change(const Olt& olt, const Onu& onu, bool closed)
{
    raise(EVENT_LOOPBACK_CHANGED, olt.id, LoopbackChangedEvent{onu.id, closed ? 1 : 0});
}

void open_loopback(const Olt& olt, Onu& onu, OnuLoopback::Kind kind)
{
    if (onu.configuration.loopback.closed != kind) return;
    onu.configuration.loopback = {};
    raise_change(olt, onu, false);
}

// One that is closed already stays so; another one is in its way.
std::int16_t close_loopback(const Olt& olt, Onu& onu, OnuLoopback::Kind kind)
{
    OnuLoopback& loopback = onu.configuration.loopback;
    if (loopback.closed == kind) return SUCCESS;
    if (loopback.closed != OnuLoopback::Open) return EXIT_ERROR;
    loopback.closed = kind;
    raise_change(olt, onu, true);
    return SUCCESS;
}

std::int16_t close_phy_loopback(Network& network, const Olt& olt, Onu& onu, std::int32_t timeout)
{
    if (const std::int16_t code = close_loopback(olt, onu, OnuLoopback::PonPhy); code != SUCCESS) return code;
    const Milliseconds duration = static_cast<Milliseconds>(timeout) * 1000;
    onu.configuration.loopback.opens_at = network.now + duration;
    after_on_link(network, olt, onu.id, duration, [](Network& later, const Olt& of_loopback, Onu& looped) {
        if (looped.configuration.loopback.opens_at == later.now)
            open_loopback(of_loopback, looped, OnuLoopback::PonPhy);
    });
    return SUCCESS;
}

struct TestMode {
    std::int32_t loopback, state, timeout, speed_limit;
};

bool is_test_mode(const TestMode& mode)
{
    if (mode.loopback != ONU_TEST_LOOPBACK_PON_MAC && mode.loopback != ONU_TEST_LOOPBACK_PON_PHY) return false;
    if (mode.state != 0 && mode.state != 1) return false;
    if (mode.loopback == ONU_TEST_LOOPBACK_PON_MAC || mode.state == 0)
        return mode.timeout == 0 && mode.speed_limit == 0;
    const std::int32_t speed = mode.speed_limit;
    return mode.timeout >= 1 && mode.timeout <= TIMEOUT_LIMIT &&
           (speed == ONU_TEST_SPEED_MDIO || speed == 10 || speed == 100 || speed == 1000);
}

} // namespace

void open_standard_loopback(const Olt& olt, Onu& onu)
{
    open_loopback(olt, onu, OnuLoopback::Standard);
}

} // namespace sdk_sim

using namespace sdk_sim;

int16_t NEP_set_standard_onu_loopback(int16_t olt_id, int16_t onu_id, int32_t state)
{
    const auto arguments = in(olt_id, onu_id, state);
    return on_onu(set_standard_onu_loopback, olt_id, onu_id, arguments, out(), [&](Olt& olt, Onu& onu) {
        if (state != 0 && state != 1) return PARAMETER_ERROR;
        if (!oam_is_up(onu)) return NO_OAM_LINK;
        ++onu.configuration.statistics.counts[ONU_LOOPBACK_CONTROLS].whole;
        if (state == 1) return close_loopback(olt, onu, OnuLoopback::Standard);
        open_standard_loopback(olt, onu);
        return SUCCESS;
    });
}

int16_t NEP_get_standard_onu_loopback(int16_t olt_id, int16_t onu_id, int32_t* state)
{
    return on_onu(get_standard_onu_loopback, olt_id, onu_id, in(olt_id, onu_id), out(state), [&](Olt&, Onu& onu) {
        *state = onu.configuration.loopback.closed == OnuLoopback::Standard;
        return SUCCESS;
    });
}

int16_t NEP_TESTING_set_onu_test_mode(int16_t olt_id, int16_t onu_id, int32_t loopback, int32_t state, int32_t timeout,
                                      int32_t speed_limit)
{
    const auto arguments = in(olt_id, onu_id, loopback, state, timeout, speed_limit);
    return on_link(set_onu_test_mode, olt_id, onu_id, arguments, out(), [&](Network& network, Olt& olt, Onu& onu) {
        if (!is_test_mode({loopback, state, timeout, speed_limit})) return PARAMETER_ERROR;
        const bool is_phy = loopback == ONU_TEST_LOOPBACK_PON_PHY;
        if (state == 0) {
            open_loopback(olt, onu, is_phy ? OnuLoopback::PonPhy : OnuLoopback::PonMac);
            return SUCCESS;
        }
        return is_phy ? close_phy_loopback(network, olt, onu, timeout) : close_loopback(olt, onu, OnuLoopback::PonMac);
    });
}
