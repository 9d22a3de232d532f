// SPDX-License-Identifier: Apache-2.0
// Counters of an ONU: all that it keeps, one by branch and leaf of the standard, or all of the standard's in turn; and
// their clearing.
#include "REMOTE_MANAGEMENT_CLI/oam_statistics.h"

#include <cstddef>

#include "CLI_GENERAL/arguments.h"
#include "CLI_GENERAL/command.h"
#include "REMOTE_MANAGEMENT_CLI/onu_report.h"

using namespace epon;

namespace {

constexpr Field counter(const char* label, size_t offset)
{
    return {label, FieldFormat::Counter, static_cast<uint16_t>(offset)};
}

constexpr Field statistics_fields[] = {
    counter("frames_transmitted_ok", offsetof(REMOTE_oam_statistics, frames_transmitted_ok)),
    counter("frames_received_ok", offsetof(REMOTE_oam_statistics, frames_received_ok)),
    counter("frame_check_sequence_errors", offsetof(REMOTE_oam_statistics, frame_check_sequence_errors)),
    counter("octets_transmitted_ok", offsetof(REMOTE_oam_statistics, octets_transmitted_ok)),
    counter("octets_received_ok", offsetof(REMOTE_oam_statistics, octets_received_ok)),
    counter("multicast_frames_transmitted_ok", offsetof(REMOTE_oam_statistics, multicast_frames_transmitted_ok)),
    counter("broadcast_frames_transmitted_ok", offsetof(REMOTE_oam_statistics, broadcast_frames_transmitted_ok)),
    counter("multicast_frames_received_ok", offsetof(REMOTE_oam_statistics, multicast_frames_received_ok)),
    counter("broadcast_frames_received_ok", offsetof(REMOTE_oam_statistics, broadcast_frames_received_ok)),
    counter("frame_too_long_errors", offsetof(REMOTE_oam_statistics, frame_too_long_errors)),
    counter("information_transmitted", offsetof(REMOTE_oam_statistics, information_transmitted)),
    counter("information_received", offsetof(REMOTE_oam_statistics, information_received)),
    counter("event_notification_transmitted", offsetof(REMOTE_oam_statistics, event_notification_transmitted)),
    counter("loopback_control_received", offsetof(REMOTE_oam_statistics, loopback_control_received)),
    counter("variable_request_received", offsetof(REMOTE_oam_statistics, variable_request_received)),
    counter("variable_response_transmitted", offsetof(REMOTE_oam_statistics, variable_response_transmitted)),
    counter("organization_specific_transmitted", offsetof(REMOTE_oam_statistics, organization_specific_transmitted)),
    counter("organization_specific_received", offsetof(REMOTE_oam_statistics, organization_specific_received)),
};

constexpr Field value_field = counter("value", 0);

// What every ONU with standard OAM counts: the leaves of the first of these fields, in their order.
constexpr uint16_t standard_leaves[] = {OAM_LEAF_FRAMES_TRANSMITTED_OK,        OAM_LEAF_FRAMES_RECEIVED_OK,
                                        OAM_LEAF_FRAME_CHECK_SEQUENCE_ERRORS,  OAM_LEAF_OCTETS_TRANSMITTED_OK,
                                        OAM_LEAF_OCTETS_RECEIVED_OK,           OAM_LEAF_MULTICAST_FRAMES_XMITTED_OK,
                                        OAM_LEAF_BROADCAST_FRAMES_XMITTED_OK,  OAM_LEAF_MULTICAST_FRAMES_RECEIVED_OK,
                                        OAM_LEAF_BROADCAST_FRAMES_RECEIVED_OK, OAM_LEAF_FRAME_TOO_LONG_ERRORS};

enum { BY_LEAF_WORDS = 3 }; // branch, leaf and kind of ONU

} // namespace

int show_remote_oam_all_stats(cmd_element*, vty* session, int argc, char** argv)
{
    return show_remote(session, argc, argv, REMOTE_NEPONU_get_all_stats, statistics_fields);
}

// An ONU of the OLT's own kind is asked by remote management, any other by a variable request of standard OAM.
int show_remote_oam_stat_by_leaf(cmd_element*, vty* session, int argc, char** argv)
{
    OnuTarget onu;
    int result;
    char** words;
    uint8_t branch;
    uint16_t leaf;
    int32_t is_own_kind;
    if (!read_onu_target(session, argc, argv, BY_LEAF_WORDS, &onu, &words, &result)) return result;
    if (!read_number(session, words[0], unsigned_range("stat_branch", 0, 255), &branch)) return -1;
    if (!read_number(session, words[1], unsigned_16("stat_leaf"), &leaf)) return -1;
    if (!read_word(session, words[2], "rbx_onu", true_false, &is_own_kind)) return -1;
    uint64_t value = 0;
    const auto get = is_own_kind == 1 ? REMOTE_NEPONU_get_stat_by_leaf : REMOTE_NEPONU_get_stat_by_leaf_standard;
    return show_remote_record(session, get(onu.olt_id, onu.onu_id, branch, leaf, &value), &value, {&value_field, 1});
}

// Counter by counter; the first one that the ONU does not tell ends the list.
int show_remote_oam_standard_stat_all(cmd_element*, vty* session, int argc, char** argv)
{
    OnuTarget onu;
    int result;
    if (!read_onu_target(session, argc, argv, &onu, &result)) return result;
    const Field* statistic = statistics_fields;
    for (const uint16_t leaf : standard_leaves) {
        uint64_t value = 0;
        const int16_t code =
            REMOTE_NEPONU_get_stat_by_leaf_standard(onu.olt_id, onu.onu_id, OAM_BRANCH_ATTRIBUTE, leaf, &value);
        if (code != 0) return report_remote(session, code);
        const Field field = counter(statistic->label, 0);
        print_fields(session, &value, {&field, 1});
        ++statistic;
    }
    return 0;
}

int remote_clear_all_statistics(cmd_element*, vty* session, int, char**)
{
    OnuTarget onu;
    int result;
    if (!read_session_target(session, &onu, &result)) return result;
    return report_remote(session, REMOTE_NEPONU_clear_all_statistics(onu.olt_id, onu.onu_id));
}

static constinit cmd_element show_remote_oam_all_stats_cmd =
    command("show onu remote oam all-stats OLT_INDEX ONU_INDEX", show_remote_oam_all_stats,
            "Show settings and state\n"
            "One ONU\n"
            "Remote management: the ONU is asked by OAM\n"
            "Counters of the ONU and of its OAM\n"
            "All counters, since they were cleared\n"
            "Index of the OLT, 0-15, decimal or with 0x hexadecimal\n"
            "Index of the ONU, 0-254, decimal or with 0x hexadecimal\n");

static constinit cmd_element show_remote_oam_stat_by_leaf_cmd = command(
    "show onu remote oam stat-by-leaf OLT_INDEX ONU_INDEX stat-branch <0-255> stat-leaf <0-65535> "
    "rbx-onu (true|false)",
    show_remote_oam_stat_by_leaf,
    "Show settings and state\n"
    "One ONU\n"
    "Remote management: the ONU is asked by OAM\n"
    "Counters of the ONU and of its OAM\n"
    "One counter, by its number in the standard\n"
    "Index of the OLT, 0-15, decimal or with 0x hexadecimal\n"
    "Index of the ONU, 0-254, decimal or with 0x hexadecimal\n"
    "Branch of the counter\n"
    "Number of the branch, 0-255; attributes are branch 7\n"
    "Leaf of the counter in its branch\n"
    "Number of the leaf, 0-65535; 2 and 5: frames sent and received, 6: check sequence errors, 8 and 14: octets "
    "sent and received\n"
    "Whether the ONU is of the OLT's own kind\n"
    "true: asked by remote management, counted since cleared; false: asked by standard OAM, never cleared\n");

static constinit cmd_element show_remote_oam_standard_stat_all_cmd =
    command("show onu remote oam-stansard stat-by-leaf OLT_INDEX ONU_INDEX", show_remote_oam_standard_stat_all,
            "Show settings and state\n"
            "One ONU\n"
            "Remote management: the ONU is asked by OAM\n"
            "Counters that standard OAM tells, of any kind of ONU\n"
            "All of them, leaf by leaf; they are never cleared\n"
            "Index of the OLT, 0-15, decimal or with 0x hexadecimal\n"
            "Index of the ONU, 0-254, decimal or with 0x hexadecimal\n");

static constinit cmd_element remote_clear_all_statistics_cmd =
    command("remote oam-api clear-all-statistics", remote_clear_all_statistics,
            "Remote management: the ONU is asked by OAM\n"
            "OAM of the ONU\n"
            "Set the counters of the ONU and of its OAM to 0; those of standard OAM go on\n");

namespace epon {

void install_oam_statistics()
{
    install({{&show_remote_oam_all_stats_cmd, SHOW_NODES},
             {&show_remote_oam_stat_by_leaf_cmd, SHOW_NODES},
             {&show_remote_oam_standard_stat_all_cmd, in(CONFIG_NODE)},
             {&remote_clear_all_statistics_cmd, in(ONU_NODE)}});
}

} // namespace epon
