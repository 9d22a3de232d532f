// SPDX-License-Identifier: Apache-2.0
// ONUs with protected optical lines: holdover while a line is switched, the working PON interface, and the times after
// which a line counts as lost.
#include "CTC_STACK_CLI/protection.h"

#include <cstddef>

#include "CLI_GENERAL/arguments.h"
#include "CLI_GENERAL/onu_show.h"
#include "CTC_STACK_CLI/onu_report.h"

using namespace epon;

namespace {

constexpr Word holdover_state_words[] = {{"activated", CTC_HOLDOVER_ACTIVATED},
                                         {"disactivated", CTC_HOLDOVER_DISACTIVATED}};
constexpr WordTable holdover_state = {"holdover_state", holdover_state_words};

constexpr int WORDS_WITH_TIME = 2;

struct Holdover {
    int32_t state;
    uint32_t time;
};
constexpr Field holdover_fields[] = {
    {"holdover_state", FieldFormat::Int32Word, offsetof(Holdover, state), &holdover_state},
    {"holdover_time", FieldFormat::Uint32, offsetof(Holdover, time)},
};

constexpr Field active_pon_if_fields[] = {{"active_pon_if", FieldFormat::Uint8, 0}};

struct LosTimes {
    uint16_t optic;
    uint16_t mac;
};
constexpr Field los_fields[] = {
    {"los_optic_time", FieldFormat::Uint16, offsetof(LosTimes, optic)},
    {"los_mac_time", FieldFormat::Uint16, offsetof(LosTimes, mac)},
};

int16_t get_holdover(int16_t olt_id, int16_t onu_id, Holdover* holdover)
{
    return CTC_STACK_get_holdover_state(olt_id, onu_id, &holdover->state, &holdover->time);
}

int16_t get_los_times(int16_t olt_id, int16_t onu_id, LosTimes* times)
{
    return CTC_STACK_get_onu_protection_parameters(olt_id, onu_id, &times->optic, &times->mac);
}

} // namespace

int holdover_state_config(cmd_element*, vty* session, int argc, char** argv)
{
    OnuTarget onu;
    int result;
    Holdover holdover = {};
    if (!read_session_target(session, &onu, &result)) return result;
    if (!read_word(session, argv[0], "holdover_state", holdover_state, &holdover.state)) return -1;
    if (argc == WORDS_WITH_TIME && !read_number(session, argv[1], unsigned_32("holdover_time"), &holdover.time))
        return -1;
    return report_ctc(session, CTC_STACK_set_holdover_state(onu.olt_id, onu.onu_id, holdover.state, holdover.time));
}

int show_holdover_state_config(cmd_element*, vty* session, int argc, char** argv)
{
    return show_ctc(session, argc, argv, get_holdover, holdover_fields);
}

int active_pon_if_state_config(cmd_element*, vty* session, int, char** argv)
{
    OnuTarget onu;
    int result;
    uint8_t active_pon_if;
    if (!read_session_target(session, &onu, &result)) return result;
    if (!read_number(session, argv[0], unsigned_range("active_pon_if", 0, UINT8_MAX), &active_pon_if)) return -1;
    return report_ctc(session, CTC_STACK_set_active_pon_if_state(onu.olt_id, onu.onu_id, active_pon_if));
}

int show_active_pon_if_state_config(cmd_element*, vty* session, int argc, char** argv)
{
    return show_ctc(session, argc, argv, CTC_STACK_get_active_pon_if_state, active_pon_if_fields);
}

int protection_parameter(cmd_element*, vty* session, int, char** argv)
{
    OnuTarget onu;
    int result;
    LosTimes times;
    if (!read_session_target(session, &onu, &result)) return result;
    if (!read_number(session, argv[0], unsigned_16("LOS_OPTIC_TIME"), &times.optic)) return -1;
    if (!read_number(session, argv[1], unsigned_16("LOS_MAC_TIME"), &times.mac)) return -1;
    return report_ctc(session, CTC_STACK_set_onu_protection_parameters(onu.olt_id, onu.onu_id, times.optic, times.mac));
}

int show_onu_protection_parameter(cmd_element*, vty* session, int argc, char** argv)
{
    return show_ctc(session, argc, argv, get_los_times, los_fields);
}

static constinit cmd_element holdover_state_config_cmd = command(
    "ctc holdover-state holdover-state (disactivated|activated) holdover-time <50-1000>", holdover_state_config,
    "Management of ONUs by the CTC extension of OAM\n"
    "Whether the ONU holds its registration while its line is switched\n"
    "Its new state\n"
    "activated: it waits for the time below before it gives its registration up; disactivated: it does not wait\n"
    "How long it waits\n"
    "Time in ms, 50-1000\n");

static constinit cmd_element holdover_state_config_off_cmd =
    command("ctc holdover-state holdover-state (disactivated)", holdover_state_config,
            "Management of ONUs by the CTC extension of OAM\n"
            "Whether the ONU holds its registration while its line is switched\n"
            "Its new state\n"
            "disactivated: it does not wait, and its time is set to 0\n");

static constinit cmd_element active_pon_if_state_config_cmd =
    command("ctc active-pon-if-state active-pon-if <0-255>", active_pon_if_state_config,
            "Management of ONUs by the CTC extension of OAM\n"
            "Which PON interface of the ONU works\n"
            "The interface that is to work; another one stands by\n"
            "Number of the interface, 0 for the first, 0-255\n");

static constinit cmd_element protection_parameter_cmd =
    command("ctc protection_parameter los_optic_time LOS_OPTIC_TIME los_mac_time LOS_MAC_TIME", protection_parameter,
            "Management of ONUs by the CTC extension of OAM\n"
            "When the ONU takes its line for lost\n"
            "Time without light\n"
            "Time in ms, 0-65535, decimal or with 0x hexadecimal\n"
            "Time without frames\n"
            "Time in ms, 0-65535, decimal or with 0x hexadecimal\n");

static constinit OnuShow show_holdover_state_config_cmd =
    ctc_show<"holdover-state-parameter",
             "Whether it holds its registration while its line is switched, and how long, ms\n">(
        show_holdover_state_config);

static constinit OnuShow show_active_pon_if_state_config_cmd =
    ctc_show<"active-pon-if-state-parameter", "Which of its PON interfaces works, 0 for the first\n">(
        show_active_pon_if_state_config);

static constinit OnuShow show_onu_protection_parameter_cmd =
    ctc_show<"protection_parameter", "Times without light and without frames after which its line is lost, ms\n">(
        show_onu_protection_parameter);

namespace epon {

void install_ctc_protection()
{
    install({{&holdover_state_config_cmd, in(ONU_NODE)},
             {&holdover_state_config_off_cmd, in(ONU_NODE)},
             {&active_pon_if_state_config_cmd, in(ONU_NODE)},
             {&protection_parameter_cmd, in(ONU_NODE)}});
    install(
        {&show_holdover_state_config_cmd, &show_active_pon_if_state_config_cmd, &show_onu_protection_parameter_cmd});
}

} // namespace epon
