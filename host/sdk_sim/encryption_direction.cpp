// SPDX-License-Identifier: Apache-2.0
// Encryption of links with numbered packets. Numbers grow with the network's clock.
#include "host/sdk_sim/encryption_direction.h"

#include "host/sdk_sim/events.h"
#include "host/sdk_sim/olt_operation.h"

namespace sdk_sim {

namespace {

const Operation set_encryption_direction("NEP_set_encryption_direction", GENERAL);
const Operation get_encryption_direction("NEP_get_encryption_direction", GENERAL);
const Operation get_encryption_pn_db("NEP_get_encryption_pn_db", GENERAL);

// Packets in a millisecond, on every link alike.
constexpr uint64_t DOWNLINK_RATE = 10;
constexpr uint64_t UPLINK_RATE = 2;

// In the journal: the entries in use.
struct PnDbResult {
    OLT_encryption_pn_db* db;
};

bool is_null(const PnDbResult& result)
{
    return result.db == nullptr;
}

void clear_result(const PnDbResult& result)
{
    if (result.db != nullptr) *result.db = {};
}

void append_value(std::string* line, const PnDbResult& result)
{
    if (result.db == nullptr) {
        *line += "null";
        return;
    }
    *line += '[';
    for (uint16_t i = 0; i < result.db->count; ++i) {
        const OLT_encryption_pn& entry = result.db->entries[i];
        *line += (i == 0 ? "{llid=" : ",{llid=") + std::to_string(entry.llid) +
                 ",downlink=" + std::to_string(entry.downlink) + ",uplink=" + std::to_string(entry.uplink) + '}';
    }
    *line += ']';
}

} // namespace

} // namespace sdk_sim

using namespace sdk_sim;

int16_t NEP_set_encryption_direction(int16_t olt_id, int16_t llid, int32_t direction)
{
    const auto arguments = in(olt_id, llid, direction);
    return on_olt_and_network(set_encryption_direction, olt_id, arguments, out(), [&](Network& network, Olt& olt) {
        Onu* onu = registered_onu(olt, llid);
        if (onu == nullptr) return GENERAL.no_onu;
        if (direction < ENCRYPTION_DIRECTION_NONE || direction > ENCRYPTION_DIRECTION_UPLINK_DOWNLINK)
            return PARAMETER_ERROR;
        EncryptionDirection& encryption = onu->configuration.encryption_direction;
        if (encryption.direction == direction) return SUCCESS;
        encryption = {direction, network.now};
        raise(EVENT_ENCRYPTION_CHANGED, olt_id, EncryptionChangedEvent{llid, direction});
        return SUCCESS;
    });
}

int16_t NEP_get_encryption_direction(int16_t olt_id, int16_t llid, int32_t* direction)
{
    return on_onu(get_encryption_direction, olt_id, llid, in(olt_id, llid), out(direction), [&](Olt&, Onu& onu) {
        *direction = onu.configuration.encryption_direction.direction;
        return SUCCESS;
    });
}

int16_t NEP_get_encryption_pn_db(int16_t olt_id, OLT_encryption_pn_db* db)
{
    const auto results = out(PnDbResult{db});
    return on_olt_and_network(get_encryption_pn_db, olt_id, in(olt_id), results, [&](Network& network, Olt& olt) {
        *db = {};
        for (const auto& [id, onu] : olt.onus) {
            const EncryptionDirection& encryption = onu.configuration.encryption_direction;
            if (!counts_as_registered(onu) || encryption.direction == ENCRYPTION_DIRECTION_NONE) continue;
            const uint64_t time = network.now - encryption.since;
            const bool is_uplink = encryption.direction == ENCRYPTION_DIRECTION_UPLINK_DOWNLINK;
            db->entries[db->count++] = {id, time * DOWNLINK_RATE, is_uplink ? time * UPLINK_RATE : 0};
        }
        return SUCCESS;
    });
}
