// SPDX-License-Identifier: Apache-2.0
// Redundancy of the XAUI uplinks.
#include "host/sdk_sim/xaui_redundancy.h"

#include "host/sdk_sim/events.h"
#include "host/sdk_sim/gate.h"
#include "host/sdk_sim/scenario_reader.h"

namespace sdk_sim {

namespace {

const Operation xaui_redundancy_enable("NEP_xaui_redundancy_enable", GENERAL);
const Operation xaui_redundancy_set_params("NEP_xaui_redundancy_set_params", GENERAL);
const Operation xaui_redundancy_get_params("NEP_xaui_redundancy_get_params", GENERAL);
const Operation xaui_redundancy_switch_over("NEP_xaui_redundancy_switch_over", GENERAL);

bool is_parameter(int32_t parameter)
{
    return parameter >= XAUI_REDUNDANCY_INACTIVE_CH_MODE && parameter <= XAUI_REDUNDANCY_GPIO_MODE;
}

} // namespace

// A scenario may hold values that no command sets, to see how they are shown.
void read_xaui_redundancy(ScenarioReader& reader, XauiRedundancy* xaui)
{
    reader.flag("enabled", &xaui->enabled);
    reader.number("inactive_ch_mode", 0, 255, &xaui->parameters[XAUI_REDUNDANCY_INACTIVE_CH_MODE]);
    reader.number("triggering_mode", 0, 255, &xaui->parameters[XAUI_REDUNDANCY_TRIGGERING_MODE]);
    reader.number("gpio_mode", 0, 255, &xaui->parameters[XAUI_REDUNDANCY_GPIO_MODE]);
    reader.number("active_channel", 0, 1, &xaui->active_channel);
}

} // namespace sdk_sim

using namespace sdk_sim;

int16_t NEP_xaui_redundancy_enable(int16_t olt_id, int32_t enable)
{
    return on_olt(xaui_redundancy_enable, olt_id, in(olt_id, enable), out(), [&](Olt& olt) {
        if (enable != 0 && enable != 1) return PARAMETER_ERROR;
        olt.configuration.xaui_redundancy.enabled = enable;
        return SUCCESS;
    });
}

int16_t NEP_xaui_redundancy_set_params(int16_t olt_id, int32_t parameter, int32_t value)
{
    return on_olt(xaui_redundancy_set_params, olt_id, in(olt_id, parameter, value), out(), [&](Olt& olt) {
        if (!is_parameter(parameter) || (value != 0 && value != 1)) return PARAMETER_ERROR;
        olt.configuration.xaui_redundancy.parameters[parameter] = value;
        return SUCCESS;
    });
}

int16_t NEP_xaui_redundancy_get_params(int16_t olt_id, int32_t parameter, int32_t* value)
{
    return on_olt(xaui_redundancy_get_params, olt_id, in(olt_id, parameter), out(value), [&](Olt& olt) {
        if (!is_parameter(parameter)) return PARAMETER_ERROR;
        *value = olt.configuration.xaui_redundancy.parameters[parameter];
        return SUCCESS;
    });
}

// There is no standby channel to switch to while the redundancy is off.
int16_t NEP_xaui_redundancy_switch_over(int16_t olt_id)
{
    return on_olt(xaui_redundancy_switch_over, olt_id, in(olt_id), out(), [&](Olt& olt) {
        XauiRedundancy& xaui = olt.configuration.xaui_redundancy;
        if (xaui.enabled == 0) return EXIT_ERROR;
        xaui.active_channel = 1 - xaui.active_channel;
        raise(EVENT_XAUI_SWITCHED_OVER, olt_id, XauiSwitchedOverEvent{xaui.active_channel, 0});
        return SUCCESS;
    });
}
