// SPDX-License-Identifier: Apache-2.0
// Events of an ONU: which of them it sends, whether the host is told of them, and from how many errors in a window on.
#include "REMOTE_MANAGEMENT_CLI/alarm_configuration.h"

#include <cstddef>

#include "CLI_GENERAL/arguments.h"
#include "CLI_GENERAL/command.h"
#include "CLI_GENERAL/onu_show.h"
#include "REMOTE_MANAGEMENT_CLI/onu_report.h"

using namespace epon;

namespace {

// By code. The grammars offer only a few of them each; the handlers take all.
constexpr Word alarm_event_words[] = {
    {"errored-symbols-period", REMOTE_ALARM_ERRORED_SYMBOLS_PERIOD},
    {"errored-frame", REMOTE_ALARM_ERRORED_FRAME},
    {"errored-frame-period", REMOTE_ALARM_ERRORED_FRAME_PERIOD},
    {"second-summary", REMOTE_ALARM_SECOND_SUMMARY},
    {"dying-gasp", REMOTE_ALARM_DYING_GASP},
    {"link-fault", REMOTE_ALARM_LINK_FAULT},
    {"critical-event", REMOTE_ALARM_CRITICAL_EVENT},
    {"igmp-join", REMOTE_ALARM_IGMP_JOIN},
    {"igmp-leave", REMOTE_ALARM_IGMP_LEAVE},
    {"encryption-key", REMOTE_ALARM_ENCRYPTION_KEY},
    {"encryption-state", REMOTE_ALARM_ENCRYPTION_STATE},
    {"fec-rx-mode", REMOTE_ALARM_FEC_RX_MODE},
    {"address-tbl-full", REMOTE_ALARM_ADDRESS_TBL_FULL},
    {"connection-state", REMOTE_ALARM_CONNECTION_STATE},
    {"uni-link", REMOTE_ALARM_UNI_LINK},
    {"pon-loopback", REMOTE_ALARM_PON_LOOPBACK},
    {"authorization", REMOTE_ALARM_AUTHORIZATION},
    {"pre-reset", REMOTE_ALARM_PRE_RESET},
    {"image-burn", REMOTE_ALARM_IMAGE_BURN},
    {"eapol", REMOTE_ALARM_EAPOL},
    {"reserved1", REMOTE_ALARM_RESERVED1},
    {"reserved2", REMOTE_ALARM_RESERVED2},
    {"mpcp-nack", REMOTE_ALARM_MPCP_NACK},
    {"mld-join", REMOTE_ALARM_MLD_JOIN},
    {"mld-done", REMOTE_ALARM_MLD_DONE},
    {"host-timeout", REMOTE_ALARM_HOST_TIMEOUT},
    {"oam-receive", REMOTE_ALARM_OAM_RECEIVE},
    {"gpio-irq", REMOTE_ALARM_GPIO_IRQ},
};
static_assert(std::size(alarm_event_words) == REMOTE_ALARM_COUNT);
constexpr WordTable alarm_events = {"alarm_event_type", alarm_event_words, room_for(alarm_event_words)};

struct AlarmConfiguration {
    uint8_t enable_hook;
    uint64_t window;
    uint64_t threshold;
};

constexpr Field alarm_fields[] = {
    {"enable_hook_function", FieldFormat::Uint8Word, offsetof(AlarmConfiguration, enable_hook),
     &enable_disable_capital},
    {"window", FieldFormat::Counter, offsetof(AlarmConfiguration, window)},
    {"threshold", FieldFormat::Counter, offsetof(AlarmConfiguration, threshold)},
};

} // namespace

int show_remote_alarm_configuration(cmd_element*, vty* session, int argc, char** argv)
{
    OnuTarget onu;
    int result;
    char** words;
    int32_t type;
    if (!read_onu_target(session, argc, argv, 1, &onu, &words, &result)) return result;
    if (!read_word(session, words[0], "type", alarm_events, &type)) return -1;
    AlarmConfiguration alarm{};
    const int16_t code = REMOTE_NEPONU_get_alarm_configuration(onu.olt_id, onu.onu_id, type, &alarm.enable_hook,
                                                               &alarm.window, &alarm.threshold);
    return show_remote_record(session, code, &alarm, alarm_fields);
}

int remote_alarm_configuration(cmd_element*, vty* session, int, char** argv)
{
    OnuTarget onu;
    int result;
    int32_t type;
    AlarmConfiguration alarm;
    if (!read_session_target(session, &onu, &result)) return result;
    if (!read_word(session, argv[0], "type", alarm_events, &type)) return -1;
    if (!read_word(session, argv[1], "enable_hook_function", enable_disable, &alarm.enable_hook)) return -1;
    if (!read_unsigned_64(session, argv[2], "window", &alarm.window)) return -1;
    if (!read_unsigned_64(session, argv[3], "threshold", &alarm.threshold)) return -1;
    return report_remote(session, REMOTE_NEPONU_set_alarm_configuration(onu.olt_id, onu.onu_id, type, alarm.enable_hook,
                                                                        alarm.window, alarm.threshold));
}

int remote_event_configuration(cmd_element*, vty* session, int, char** argv)
{
    OnuTarget onu;
    int result;
    int32_t type;
    uint8_t enable;
    if (!read_session_target(session, &onu, &result)) return result;
    if (!read_word(session, argv[0], "type", alarm_events, &type)) return -1;
    if (!read_word(session, argv[1], "event", enable_disable, &enable)) return -1;
    return report_remote(session, REMOTE_NEPONU_set_event_configuration(onu.olt_id, onu.onu_id, type, enable));
}

static constinit OnuShow show_remote_alarm_configuration_cmd = remote_show<
    "oam-api alarm-configuration",
    "OAM of the ONU\n"
    "Alarms about errors that it counts in windows\n",
    "type (errored-symbols-period|errored-frame|errored-frame-period|second-summary)",
    "Which alarm\n"
    "errored-symbols-period: window and threshold in symbols; errored-frame: window in 100 ms, threshold in "
    "frames; errored-frame-period: window and threshold in frames; second-summary: window in 100 ms, "
    "threshold in seconds with errors\n">(show_remote_alarm_configuration);

static constinit cmd_element remote_alarm_configuration_cmd =
    command("remote oam-api alarm-configuration type "
            "(errored-symbols-period|errored-frame|errored-frame-period|second-summary) "
            "enable-hook-function (disable|enable) window WINDOW threshold THRESHOLD",
            remote_alarm_configuration,
            "Remote management: the ONU is asked by OAM\n"
            "OAM of the ONU\n"
            "Alarms about errors that it counts in windows\n"
            "Which alarm\n"
            "errored-symbols-period: errors in symbols; errored-frame: errored frames in a time; errored-frame-period: "
            "errored frames among a number of frames; second-summary: seconds with errors\n"
            "Whether the host is told of it\n"
            "enable: each window with enough errors is an event; disable: no window is an event\n"
            "How long errors are counted before they begin at 0 again\n"
            "Of errored-symbols-period: symbols, 1-18446744073709551615; errored-frame: 100 ms, 10-600; "
            "errored-frame-period: frames, 1-4294967295; second-summary: 100 ms, 100-9000\n"
            "From how many errors in a window on there is an event\n"
            "Of errored-symbols-period: symbols; errored-frame and errored-frame-period: frames, 0-4294967295; "
            "second-summary: seconds, 0-65535\n");

static constinit cmd_element remote_event_configuration_cmd = command(
    "remote device-mgmt event-configuration type (address-tbl-full|uni-link|pre-reset|image-burn) event "
    "(disable|enable)",
    remote_event_configuration,
    "Remote management: the ONU is asked by OAM\n"
    "The ONU as a device\n"
    "Events that it sends\n"
    "Which event\n"
    "address-tbl-full: no room for another address; uni-link: link of a user's port; pre-reset: the ONU is about to "
    "start anew; image-burn: progress of a file that it receives\n"
    "Whether the ONU sends it\n"
    "enable: the ONU sends it; disable: the ONU does not send it\n");

namespace epon {

void install_alarm_configuration()
{
    install({&show_remote_alarm_configuration_cmd});
    install({{&remote_alarm_configuration_cmd, in(ONU_NODE)}, {&remote_event_configuration_cmd, in(ONU_NODE)}});
}

} // namespace epon
