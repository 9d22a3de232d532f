// SPDX-License-Identifier: Apache-2.0
// Thresholds of an ONU's reports, and what spreads frames over its aggregated link.
#include "REMOTE_MANAGEMENT_CLI/frame_processing.h"

#include <cstddef>

#include "CLI_GENERAL/onu_show.h"
#include "REMOTE_MANAGEMENT_CLI/onu_report.h"

using namespace epon;

namespace {

using Reporter = REMOTE_threshold_reporter_configuration;

constexpr Field reporter_fields[] = {
    {"thresholds_enable", FieldFormat::Uint8Word, offsetof(Reporter, enabled), &enable_disable_capital},
    {"queue_sets", FieldFormat::Uint8, offsetof(Reporter, queue_sets)},
    {"queue_0_threshold", FieldFormat::Uint16, offsetof(Reporter, threshold[0])},
    {"queue_1_threshold", FieldFormat::Uint16, offsetof(Reporter, threshold[1])},
    {"queue_2_threshold", FieldFormat::Uint16, offsetof(Reporter, threshold[2])},
    {"queue_3_threshold", FieldFormat::Uint16, offsetof(Reporter, threshold[3])},
    {"queue_4_threshold", FieldFormat::Uint16, offsetof(Reporter, threshold[4])},
    {"queue_5_threshold", FieldFormat::Uint16, offsetof(Reporter, threshold[5])},
    {"queue_6_threshold", FieldFormat::Uint16, offsetof(Reporter, threshold[6])},
    {"queue_7_threshold", FieldFormat::Uint16, offsetof(Reporter, threshold[7])},
};

struct LagHashKey {
    uint32_t vlan_id, vlan_priority, mac_sa, mac_da;
};

constexpr Field hash_key_fields[] = {
    {"VLAN ID key", FieldFormat::Uint32, offsetof(LagHashKey, vlan_id)},
    {"VLAN ID prio key", FieldFormat::Uint32, offsetof(LagHashKey, vlan_priority)},
    {"MAC SA key", FieldFormat::Uint32, offsetof(LagHashKey, mac_sa)},
    {"MAC DA key", FieldFormat::Uint32, offsetof(LagHashKey, mac_da)},
};

int16_t get_hash_key(int16_t olt_id, int16_t onu_id, LagHashKey* key)
{
    return REMOTE_NEPONU_ne_get_lag_hash_key(olt_id, onu_id, &key->vlan_id, &key->vlan_priority, &key->mac_sa,
                                             &key->mac_da);
}

} // namespace

int show_remote_threshold_reporter_configuration(cmd_element*, vty* session, int argc, char** argv)
{
    return show_remote(session, argc, argv, REMOTE_NEPONU_get_threshold_reporter_configuration, reporter_fields);
}

int show_remote_lag_hash_key(cmd_element*, vty* session, int argc, char** argv)
{
    return show_remote(session, argc, argv, get_hash_key, hash_key_fields);
}

int remote_lag_hash_key(cmd_element*, vty* session, int, char** argv)
{
    OnuTarget onu;
    int result;
    LagHashKey key;
    if (!read_session_target(session, &onu, &result)) return result;
    if (!read_number(session, argv[0], unsigned_32("vlan_id_key_enable"), &key.vlan_id)) return -1;
    if (!read_number(session, argv[1], unsigned_32("vlan_pri_key_enable"), &key.vlan_priority)) return -1;
    if (!read_number(session, argv[2], unsigned_32("mac_sa_key_enable"), &key.mac_sa)) return -1;
    if (!read_number(session, argv[3], unsigned_32("mac_da_key_enable"), &key.mac_da)) return -1;
    return report_remote(session, REMOTE_NEPONU_ne_set_lag_hash_key(onu.olt_id, onu.onu_id, key.vlan_id,
                                                                    key.vlan_priority, key.mac_sa, key.mac_da));
}

static constinit OnuShow show_remote_threshold_reporter_configuration_cmd =
    remote_show<"frame-processing threshold-reporter-configuration",
                "What the ONU does with frames\n"
                "Thresholds in the reports of what waits in its queues, time quanta of 16 ns\n">(
        show_remote_threshold_reporter_configuration);

static constinit OnuShow show_remote_lag_hash_key_cmd =
    remote_show<"frame-processing lag-hash-key", "What the ONU does with frames\n"
                                                 "What of a frame chooses the physical link of an aggregated one\n">(
        show_remote_lag_hash_key);

static constinit cmd_element remote_lag_hash_key_cmd =
    command("remote frame-processing lag-hash-key vlan-id-key VLAN_ID_KEY vlan-pri-key VLAN_PRI_KEY mac-sa-key "
            "MAC_SA_KEY mac-da-key MAC_DA_KEY",
            remote_lag_hash_key,
            "Remote management: the ONU is asked by OAM\n"
            "What the ONU does with frames\n"
            "What of a frame chooses the physical link of an aggregated one\n"
            "The VLAN\n"
            "1: it counts, 0: it does not\n"
            "The priority in the VLAN tag\n"
            "1: it counts, 0: it does not\n"
            "The MAC address of the sender\n"
            "1: it counts, 0: it does not\n"
            "The MAC address of the receiver\n"
            "1: it counts, 0: it does not\n");

namespace epon {

void install_remote_frame_processing()
{
    install({&show_remote_threshold_reporter_configuration_cmd});
    install({&show_remote_lag_hash_key_cmd}, in(CONFIG_NODE));
    install({{&remote_lag_hash_key_cmd, in(ONU_NODE)}});
}

} // namespace epon
