// SPDX-License-Identifier: Apache-2.0
// An ONU as a device: its LEDs, its starting anew and the count of that, a test of itself, and its largest frame.
#include "REMOTE_MANAGEMENT_CLI/device_mgmt.h"

#include <cstddef>

#include "CLI_GENERAL/arguments.h"
#include "CLI_GENERAL/command.h"
#include "CLI_GENERAL/onu_show.h"
#include "REMOTE_MANAGEMENT_CLI/device_words.h"
#include "REMOTE_MANAGEMENT_CLI/onu_report.h"

using namespace epon;

namespace {

constexpr Word led_words[] = {{"pon-rx", REMOTE_LED_PON_RX}, {"pon-link", REMOTE_LED_PON_LINK},
                              {"pon-tx", REMOTE_LED_PON_TX}, {"pon-rx-err", REMOTE_LED_PON_RX_ERR},
                              {"uni1", REMOTE_LED_UNI1},     {"uni2", REMOTE_LED_UNI2},
                              {"uni3", REMOTE_LED_UNI3},     {"uni4", REMOTE_LED_UNI4}};
constexpr WordTable leds = {"onu_led", led_words, room_for(led_words)};

constexpr Word test_words[] = {{"uni-loopback", REMOTE_TEST_UNI_LOOPBACK}};
constexpr WordTable tests = {"diagnostic_test", test_words, room_for(test_words)};

struct ExtendMtu {
    uint8_t downstream;
    uint8_t upstream;
};

constexpr Field mtu_fields[] = {
    {"downstream_extend_enable", FieldFormat::Uint8Word, offsetof(ExtendMtu, downstream), &enable_disable_capital},
    {"upstream_extend_enable", FieldFormat::Uint8Word, offsetof(ExtendMtu, upstream), &enable_disable_capital}};

constexpr Field reboot_counter_fields[] = {{"reboot_counter", FieldFormat::Uint16, 0}};
constexpr NumberRule reboot_counter = unsigned_range("counter", 0, REMOTE_REBOOT_COUNTER_MAX);

} // namespace

int remote_led_configuration(cmd_element*, vty* session, int, char** argv)
{
    OnuTarget onu;
    int result;
    int32_t led;
    int32_t activity;
    if (!read_session_target(session, &onu, &result)) return result;
    if (!read_word(session, argv[0], "led", leds, &led)) return -1;
    if (!read_word(session, argv[1], "activity", led_activities, &activity)) return -1;
    return report_remote(session, REMOTE_NEPONU_set_led_configuration(onu.olt_id, onu.onu_id, led, activity));
}

int remote_reset_device(cmd_element*, vty* session, int, char** argv)
{
    return set_remote_word(session, argv[0], "reason", reset_reasons, REMOTE_NEPONU_reset_device);
}

int remote_diagnostic_test(cmd_element*, vty* session, int, char** argv)
{
    return set_remote_word(session, argv[0], "test", tests, REMOTE_NEPONU_diagnostic_test);
}

int remote_extend_mtu_size(cmd_element*, vty* session, int, char** argv)
{
    OnuTarget onu;
    int result;
    ExtendMtu mtu;
    if (!read_session_target(session, &onu, &result)) return result;
    if (!read_word(session, argv[0], "downstream_extend", enable_disable, &mtu.downstream)) return -1;
    if (!read_word(session, argv[1], "upstream_extend", enable_disable, &mtu.upstream)) return -1;
    return report_remote(session,
                         REMOTE_NEPONU_set_extend_mtu_size(onu.olt_id, onu.onu_id, mtu.downstream, mtu.upstream));
}

int show_remote_extend_mtu_size(cmd_element*, vty* session, int argc, char** argv)
{
    OnuTarget onu;
    int result;
    if (!read_onu_target(session, argc, argv, &onu, &result)) return result;
    ExtendMtu mtu{};
    const int16_t code = REMOTE_NEPONU_get_extend_mtu(onu.olt_id, onu.onu_id, &mtu.downstream, &mtu.upstream);
    return show_remote_record(session, code, &mtu, mtu_fields);
}

int remote_reboot_counter(cmd_element*, vty* session, int, char** argv)
{
    return set_remote_number(session, argv[0], reboot_counter, REMOTE_NEPONU_set_reboot_counter);
}

int show_remote_reboot_counter(cmd_element*, vty* session, int argc, char** argv)
{
    return show_remote(session, argc, argv, REMOTE_NEPONU_get_reboot_counter, reboot_counter_fields);
}

static constinit cmd_element remote_led_configuration_cmd =
    command("remote device-mgmt led-configuration led (pon-rx|pon-link|pon-tx|pon-rx-err|uni1|uni2|uni3|uni4) "
            "activity (hw|fw|off|on|slow|fast)",
            remote_led_configuration,
            "Remote management: the ONU is asked by OAM\n"
            "The ONU as a device\n"
            "What drives its LEDs\n"
            "Which LED\n"
            "pon-rx: data from the OLT; pon-link: registration; pon-tx: data to the OLT; pon-rx-err: errors; uni1, "
            "uni2, uni3, uni4: users' ports\n"
            "What the LED does\n"
            "hw: what the hardware has it do; fw: what the firmware has it do; off: dark; on: lit; slow: blinks "
            "slowly; fast: blinks fast\n");

static constinit cmd_element remote_reset_device_cmd = command(
    "remote device-mgmt reset-device reason (none|sw|sw-error|periph-low|periph-high)", remote_reset_device,
    "Remote management: the ONU is asked by OAM\n"
    "The ONU as a device\n"
    "Have it start anew: its users are cut off until it has registered again\n"
    "What it is to tell as the cause\n"
    "none: no cause; sw: by software; sw-error: an error of software; periph-low: a peripheral, of low priority; "
    "periph-high: a peripheral, of high priority\n");

static constinit cmd_element remote_diagnostic_test_cmd =
    command("remote device-mgmt diagnostic-test test (uni-loopback)", remote_diagnostic_test,
            "Remote management: the ONU is asked by OAM\n"
            "The ONU as a device\n"
            "Have it test itself\n"
            "Which test\n"
            "uni-loopback: frames that are sent back in the users' port\n");

static constinit cmd_element remote_extend_mtu_size_cmd =
    command("remote device-mgmt extend-mtu-size downstream-extend (disable|enable) upstream-extend (disable|enable)",
            remote_extend_mtu_size,
            "Remote management: the ONU is asked by OAM\n"
            "The ONU as a device\n"
            "Whether it passes frames of more than 1518 octets\n"
            "Frames to the users\n"
            "enable: long frames pass; disable: they are counted as too long\n"
            "Frames from the users\n"
            "enable: long frames pass; disable: no long frames pass\n");

static constinit OnuShow show_remote_extend_mtu_size_cmd =
    remote_show<"device-mgmt extend-mtu-size", "The ONU as a device\n"
                                               "Whether it passes frames of more than 1518 octets\n">(
        show_remote_extend_mtu_size);

static constinit cmd_element remote_reboot_counter_cmd =
    command("remote device-mgmt reboot-counter counter <0-15>", remote_reboot_counter,
            "Remote management: the ONU is asked by OAM\n"
            "The ONU as a device\n"
            "How often it started, 0-15, then from 0 again\n"
            "The counter's new value\n"
            "Starts to count from, 0-15\n");

static constinit OnuShow show_remote_reboot_counter_cmd =
    remote_show<"device-mgmt reboot-counter", "The ONU as a device\n"
                                              "How often it started, 0-15, then from 0 again\n">(
        show_remote_reboot_counter);

namespace epon {

void install_device_mgmt()
{
    install({&show_remote_extend_mtu_size_cmd, &show_remote_reboot_counter_cmd});
    install({{&remote_led_configuration_cmd, in(ONU_NODE)},
             {&remote_reset_device_cmd, in(ONU_NODE)},
             {&remote_diagnostic_test_cmd, in(ONU_NODE)},
             {&remote_extend_mtu_size_cmd, in(ONU_NODE)},
             {&remote_reboot_counter_cmd, in(ONU_NODE)}});
}

} // namespace epon
