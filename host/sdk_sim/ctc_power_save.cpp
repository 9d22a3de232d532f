// SPDX-License-Identifier: Apache-2.0
// ONUs that sleep by turns.
#include "host/sdk_sim/ctc_power_save.h"

#include "host/sdk_sim/ctc_operation.h"

namespace sdk_sim {

template <>
inline constexpr auto record_fields<CTC_power_save_capabilities> =
    std::tuple(record_field("sleep", &CTC_power_save_capabilities::sleep),
               record_field("early_wakeup", &CTC_power_save_capabilities::early_wakeup));

template <>
inline constexpr auto record_fields<CTC_power_save_config> =
    std::tuple(record_field("early_wakeup", &CTC_power_save_config::early_wakeup),
               record_field("sleep_duration_max", &CTC_power_save_config::sleep_duration_max));

namespace {

const Operation get_capabilities("CTC_STACK_get_onu_power_save_capabilities", CTC_STACK);
const Operation set_config("CTC_STACK_set_onu_power_save_config", CTC_STACK);
const Operation get_config("CTC_STACK_get_onu_power_save_config", CTC_STACK);
const Operation set_sleep_control("CTC_STACK_set_sleep_control", CTC_STACK);

bool can_sleep(const Onu& onu, std::int32_t mode)
{
    const std::int32_t ability = onu.capabilities.sleep;
    return mode != CTC_SLEEP_NONE && (ability == CTC_SLEEP_BOTH || ability == mode);
}

struct SleepControl {
    std::uint32_t sleep_duration, wake_duration;
    std::int32_t flag, mode;
};

bool is_sleep_control(const SleepControl& control)
{
    return control.sleep_duration <= CTC_SLEEP_TIME_MAX && control.wake_duration <= CTC_SLEEP_TIME_MAX &&
           control.flag >= CTC_SLEEP_LEAVE && control.flag <= CTC_SLEEP_CHANGE && control.mode >= CTC_SLEEP_NONE &&
           control.mode <= CTC_SLEEP_TRX;
}

// An ONU is told to sleep when it is awake, and to sleep otherwise when it sleeps by turns.
std::int16_t carry_out(Onu& onu, const SleepControl& control)
{
    PowerSave& power_save = onu.configuration.power_save;
    if (control.flag == CTC_SLEEP_LEAVE) {
        power_save.sleep = CTC_SLEEP_NONE;
        return SUCCESS;
    }
    const bool sleeps = power_save.sleep != CTC_SLEEP_NONE;
    if (sleeps != (control.flag == CTC_SLEEP_CHANGE) || !can_sleep(onu, control.mode)) return ONU_BAD_PARAMETER;
    if (control.sleep_duration > power_save.config.sleep_duration_max) return ONU_BAD_PARAMETER;
    power_save.sleep = control.mode;
    return SUCCESS;
}

} // namespace

} // namespace sdk_sim

using namespace sdk_sim;

int16_t CTC_STACK_get_onu_power_save_capabilities(int16_t olt_id, int16_t onu_id,
                                                  CTC_power_save_capabilities* capabilities)
{
    const auto read = [](const Onu& onu, CTC_power_save_capabilities& record) {
        record = {static_cast<uint8_t>(onu.capabilities.sleep), onu.capabilities.early_wakeup};
    };
    return get_ctc(get_capabilities, olt_id, onu_id, read, capabilities);
}

int16_t CTC_STACK_set_onu_power_save_config(int16_t olt_id, int16_t onu_id, const CTC_power_save_config* config)
{
    return set_ctc(set_config, olt_id, onu_id, in(olt_id, onu_id, config), [&](Network&, Olt&, Onu& onu) {
        if (config->early_wakeup > 1 || config->sleep_duration_max > CTC_SLEEP_TIME_MAX) return PARAMETER_ERROR;
        if (config->early_wakeup > onu.capabilities.early_wakeup) return ONU_BAD_PARAMETER;
        onu.configuration.power_save.config = *config;
        return SUCCESS;
    });
}

int16_t CTC_STACK_get_onu_power_save_config(int16_t olt_id, int16_t onu_id, CTC_power_save_config* config)
{
    const auto read = [](const Onu& onu, CTC_power_save_config& record) {
        record = onu.configuration.power_save.config;
    };
    return get_ctc(get_config, olt_id, onu_id, read, config);
}

int16_t CTC_STACK_set_sleep_control(int16_t olt_id, int16_t onu_id, uint32_t start_time, uint32_t sleep_duration,
                                    uint32_t wake_duration, int32_t flag, int32_t mode)
{
    const auto arguments = in(olt_id, onu_id, start_time, sleep_duration, wake_duration, flag, mode);
    const SleepControl control{sleep_duration, wake_duration, flag, mode};
    return set_ctc(set_sleep_control, olt_id, onu_id, arguments, [&](Network&, Olt&, Onu& onu) {
        return is_sleep_control(control) ? carry_out(onu, control) : PARAMETER_ERROR;
    });
}
