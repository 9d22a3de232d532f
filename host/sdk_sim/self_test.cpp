// SPDX-License-Identifier: Apache-2.0
// An OLT's test of its own hardware. It takes a while; what it finds is true when it ends.
#include "host/sdk_sim/events.h"
#include "host/sdk_sim/gate.h"

namespace sdk_sim {

namespace {

constexpr Milliseconds SELF_TEST_TIME = 2000;
constexpr std::int32_t LOWEST_TEMPERATURE = -400; // tenths of a degree Celsius
constexpr std::int32_t HIGHEST_TEMPERATURE = 850;

using SelfTestStep = bool(const Olt& olt);

bool temperature_is_normal(const Olt& olt)
{
    const std::int32_t temperature = olt.firmware_console.temperature;
    return temperature >= LOWEST_TEMPERATURE && temperature <= HIGHEST_TEMPERATURE;
}

// Somebody else's loopback hides the UART's own signal.
bool uart_is_free(const Olt& olt)
{
    return !olt.configuration.uart.is_looped;
}

bool primary_module_answers(const Olt& olt)
{
    return olt.configuration.i2c_buses[I2C_ACCESS_PON_PRIMARY].contains(I2C_MODULE_IDENTITY);
}

bool leds_are_normal(const Olt& olt)
{
    for (const std::int32_t mode : olt.configuration.leds)
        if (mode != LED_MODE_HW) return false;
    return true;
}

constexpr SelfTestStep* steps[] = {temperature_is_normal, uart_is_free, primary_module_answers, leds_are_normal};

void complete(Olt& olt)
{
    SelfTestCompletedEvent result{std::size(steps), 0};
    for (SelfTestStep* passes : steps)
        if (!passes(olt)) ++result.tests_failed;
    olt.configuration.self_test.is_running = false;
    raise(EVENT_SELF_TEST_COMPLETED, olt.id, result);
}

const Operation olt_self_test("NEP_olt_self_test", GENERAL);

} // namespace

} // namespace sdk_sim

using namespace sdk_sim;

int16_t NEP_olt_self_test(int16_t olt_id)
{
    return on_network(olt_self_test, in(olt_id), out(), [&](Network& network) {
        Olt* olt = present_olt(network, olt_id);
        if (olt == nullptr) return GENERAL.no_olt;
        if (olt->configuration.self_test.is_running) return EXIT_ERROR;
        olt->configuration.self_test.is_running = true;
        after(network, *olt, SELF_TEST_TIME, [](Network&, Olt& tested) { complete(tested); });
        return SUCCESS;
    });
}
