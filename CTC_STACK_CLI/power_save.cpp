// SPDX-License-Identifier: Apache-2.0
// ONUs that sleep to save power: what they can do, how long they may sleep, and when.
#include "CTC_STACK_CLI/power_save.h"

#include <cstddef>

#include "CLI_GENERAL/arguments.h"
#include "CLI_GENERAL/onu_show.h"
#include "CTC_STACK_CLI/onu_report.h"

using namespace epon;

namespace {

constexpr Word sleep_words[] = {
    {"none", CTC_SLEEP_NONE}, {"tx", CTC_SLEEP_TX}, {"trx", CTC_SLEEP_TRX}, {"both", CTC_SLEEP_BOTH}};
constexpr WordTable sleep_ability = {"sleep_mode", sleep_words};
constexpr WordTable sleep_mode = {"sleep_mode", std::span(sleep_words).first(CTC_SLEEP_BOTH)};

constexpr Word sleep_flag_words[] = {
    {"leave", CTC_SLEEP_LEAVE}, {"enter", CTC_SLEEP_ENTER}, {"change", CTC_SLEEP_CHANGE}};
constexpr WordTable sleep_flag = {"sleep_flag", sleep_flag_words};

constexpr Field capability_fields[] = {
    {"sleep_mode", FieldFormat::Uint8Word, offsetof(CTC_power_save_capabilities, sleep), &sleep_ability},
    {"early_wakeup", FieldFormat::Uint8Word, offsetof(CTC_power_save_capabilities, early_wakeup), &enable_disable},
};

constexpr Field config_fields[] = {
    {"early_wakeup", FieldFormat::Uint8Word, offsetof(CTC_power_save_config, early_wakeup), &enable_disable},
    {"sleep_duration_max", FieldFormat::Uint32, offsetof(CTC_power_save_config, sleep_duration_max)},
};

} // namespace

int show_onu_powersave_capabilities(cmd_element*, vty* session, int argc, char** argv)
{
    return show_ctc(session, argc, argv, CTC_STACK_get_onu_power_save_capabilities, capability_fields);
}

int show_onu_powersave_config(cmd_element*, vty* session, int argc, char** argv)
{
    return show_ctc(session, argc, argv, CTC_STACK_get_onu_power_save_config, config_fields);
}

int power_save_config(cmd_element*, vty* session, int, char** argv)
{
    OnuTarget onu;
    int result;
    int32_t early_wakeup;
    CTC_power_save_config config = {};
    if (!read_session_target(session, &onu, &result)) return result;
    if (!read_word(session, argv[0], "early_wakeup", enable_disable, &early_wakeup)) return -1;
    if (!read_number(session, argv[1], unsigned_32("SLEEP_DURATION_MAX"), &config.sleep_duration_max)) return -1;
    config.early_wakeup = static_cast<uint8_t>(early_wakeup);
    return report_ctc(session, CTC_STACK_set_onu_power_save_config(onu.olt_id, onu.onu_id, &config));
}

int sleep_control(cmd_element*, vty* session, int, char** argv)
{
    OnuTarget onu;
    int result;
    uint32_t start_time;
    uint32_t sleep_duration;
    uint32_t wake_duration;
    int32_t flag;
    int32_t mode;
    if (!read_session_target(session, &onu, &result)) return result;
    if (!read_number(session, argv[0], unsigned_32("start_time"), &start_time)) return -1;
    if (!read_number(session, argv[1], unsigned_range("sleep_duration", 0, CTC_SLEEP_TIME_MAX), &sleep_duration) ||
        !read_number(session, argv[2], unsigned_range("wake_duration", 0, CTC_SLEEP_TIME_MAX), &wake_duration))
        return -1;
    if (!read_word(session, argv[3], "flag", sleep_flag, &flag)) return -1;
    if (!read_word(session, argv[4], "mode", sleep_mode, &mode)) return -1;
    return report_ctc(session, CTC_STACK_set_sleep_control(onu.olt_id, onu.onu_id, start_time, sleep_duration,
                                                           wake_duration, flag, mode));
}

static constinit cmd_element power_save_config_cmd =
    command("ctc power_save early_wakeup (disable|enable) sleep_duration_max SLEEP_DURATION_MAX", power_save_config,
            "Management of ONUs by the CTC extension of OAM\n"
            "How the ONU saves power by sleeping\n"
            "Whether it may wake before its time\n"
            "enable: it wakes as soon as it has something to send; disable: it sleeps its time\n"
            "The longest sleep that it may be told\n"
            "Duration in time quanta of 16 ns, 0-62500000 (one second), decimal or with 0x hexadecimal\n");

static constinit cmd_element sleep_control_cmd =
    command("ctc sleep-control start-time <0x0-0xffffffff> sleep-duration <0x0-0x03B9ACA0> wake-duration "
            "<0x0-0x03B9ACA0> flag (leave|enter|change) mode (none|tx|trx)",
            sleep_control,
            "Management of ONUs by the CTC extension of OAM\n"
            "Have the ONU sleep and wake by turns, or stay awake\n"
            "When its first sleep begins\n"
            "MPCP clock in time quanta of 16 ns, 0x0-0xffffffff, decimal or with 0x hexadecimal\n"
            "How long it sleeps each time\n"
            "Duration in time quanta of 16 ns, 0x0-0x03B9ACA0 (one second), decimal or with 0x hexadecimal\n"
            "How long it is awake between two sleeps\n"
            "Duration in time quanta of 16 ns, 0x0-0x03B9ACA0 (one second), decimal or with 0x hexadecimal\n"
            "What is to change\n"
            "leave: it stays awake; enter: it sleeps by turns; change: it does so already, but otherwise than now\n"
            "What sleeps of it\n"
            "none: nothing, with leave; tx: its transmitter; trx: its transmitter and its receiver\n");

static constinit OnuShow show_onu_powersave_capabilities_cmd =
    ctc_show<"powersave_capabilities", "What of it can sleep, and whether it can wake before its time\n">(
        show_onu_powersave_capabilities);

static constinit OnuShow show_onu_powersave_config_cmd =
    ctc_show<"powersave_config", "Whether it may wake before its time, and its longest sleep, time quanta of 16 ns\n">(
        show_onu_powersave_config);

namespace epon {

void install_ctc_power_save()
{
    install({{&power_save_config_cmd, in(ONU_NODE)}, {&sleep_control_cmd, in(ONU_NODE)}});
    install({&show_onu_powersave_capabilities_cmd, &show_onu_powersave_config_cmd});
}

} // namespace epon
