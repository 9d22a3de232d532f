// SPDX-License-Identifier: Apache-2.0
// Logical identifiers of ONUs: the table of an OLT, the links that are kept for them, and who is admitted.
#include "host/sdk_sim/ctc_loid.h"

#include <algorithm>
#include <cstring>
#include <string_view>

#include "host/sdk_sim/gate.h"

namespace sdk_sim {

namespace {

const Operation add_loid("CTC_STACK_add_auth_loid_data", CTC_STACK);
const Operation remove_loid("CTC_STACK_remove_auth_loid_data", CTC_STACK);
const Operation get_loids("CTC_STACK_get_auth_loid_data_table", CTC_STACK);
const Operation set_auth_mode("CTC_STACK_set_auth_mode", CTC_STACK);
const Operation get_auth_mode("CTC_STACK_get_auth_mode", CTC_STACK);
const Operation set_loid_llid("CTC_STACK_set_loid_db_llid", CTC_STACK);
const Operation get_loid_llid("CTC_STACK_get_loid_id_by_llid", CTC_STACK);

constexpr int16_t QUERY_FAILED = -17001;
constexpr int16_t ALREADY_EXIST = -17007;
constexpr int16_t TABLE_FULL = -17008;

bool is_text(std::string_view text, std::size_t size)
{
    return text.size() < size &&
           std::all_of(text.begin(), text.end(), [](char character) { return character > ' ' && character <= '~'; });
}

template <class Table>
auto find_loid(Table& table, std::string_view loid)
{
    return std::find_if(table.entries.begin(), table.entries.end(),
                        [loid](const LoidEntry& entry) { return entry.loid == loid; });
}

template <class Table>
auto find_link(Table& table, int16_t llid)
{
    return std::find_if(table.entries.begin(), table.entries.end(),
                        [llid](const LoidEntry& entry) { return entry.llid == llid; });
}

bool is_link(int16_t llid)
{
    return llid >= 0 && llid < ONU_INDEX_LIMIT;
}

bool checks_password(int32_t mode)
{
    return mode == CTC_AUTH_LOID || mode == CTC_AUTH_HYBRID;
}

bool is_hybrid(int32_t mode)
{
    return mode == CTC_AUTH_HYBRID || mode == CTC_AUTH_HYBRID_ANY_PASSWORD;
}

bool is_in_use(const Olt& olt, const Onu& onu)
{
    return std::any_of(olt.onus.begin(), olt.onus.end(), [&onu](const auto& other) {
        return other.first != onu.id && other.second.loid == onu.loid && counts_as_registered(other.second);
    });
}

bool is_admitted_by_loid(const Olt& olt, const Onu& onu)
{
    const LoidTable& table = olt.configuration.loid_table;
    if (onu.extended_oam != OamAnswer::Answers) return false;
    const auto entry = find_loid(table, onu.loid);
    if (entry == table.entries.end()) return false;
    if (checks_password(table.mode) && !entry->password.empty() && entry->password != onu.loid_password) return false;
    const auto owner = find_link(table, onu.id);
    if (owner != table.entries.end() ? owner != entry : entry->llid != -1) return false;
    return !is_in_use(olt, onu);
}

// An operation that changes who is admitted. change(LoidTable&) returns a code.
template <class In, class Change>
int16_t on_table(const Operation& operation, int16_t olt_id, const In& arguments, Change&& change)
{
    return on_network(operation, arguments, out(), [&](Network& network) -> int16_t {
        Olt* olt = present_olt(network, olt_id);
        if (olt == nullptr) return operation.family.no_olt;
        const int16_t code = change(olt->configuration.loid_table);
        if (code == SUCCESS) review_onus(network, *olt);
        return code;
    });
}

int16_t add(LoidTable& table, std::string_view loid, std::string_view password)
{
    if (loid.empty() || !is_text(loid, CTC_LOID_SIZE) || !is_text(password, CTC_LOID_PASSWORD_SIZE))
        return PARAMETER_ERROR;
    if (find_loid(table, loid) != table.entries.end()) return ALREADY_EXIST;
    if (table.entries.size() == CTC_LOID_TABLE_SIZE) return TABLE_FULL;
    table.entries.push_back({std::string(loid), std::string(password)});
    return SUCCESS;
}

int16_t bind(LoidTable& table, std::string_view loid, int16_t llid)
{
    const auto entry = find_loid(table, loid);
    if (entry == table.entries.end()) return PARAMETER_ERROR;
    const auto owner = find_link(table, llid);
    if (owner == entry) return SUCCESS;
    if (owner != table.entries.end() || entry->llid != -1) return ALREADY_EXIST;
    entry->llid = llid;
    return SUCCESS;
}

int16_t set_free(LoidTable& table, int16_t llid)
{
    const auto owner = find_link(table, llid);
    if (owner == table.entries.end()) return QUERY_FAILED;
    owner->llid = -1;
    return SUCCESS;
}

// The table shows as the LOIDs in it.
struct TableResult {
    CTC_loid_table* table;
};

bool is_null(const TableResult& result)
{
    return result.table == nullptr;
}

void clear_result(const TableResult& result)
{
    if (result.table != nullptr) *result.table = {};
}

void append_value(std::string* line, const TableResult& result)
{
    *line += '[';
    for (uint32_t i = 0; i < result.table->count; ++i) {
        if (i != 0) *line += ',';
        append_quoted(line, result.table->entries[i].loid);
    }
    *line += ']';
}

} // namespace

// Where a white list is followed, hybrid mode takes either proof; the LOID stands alone wherever there is none.
Admission admission(const Olt& olt, const Onu& onu)
{
    const AuthList& list = olt.configuration.auth_list;
    const int32_t mode = olt.configuration.loid_table.mode;
    const Admission by_address = admission(list, onu.mac);
    if (mode == CTC_AUTH_MAC) return by_address;
    const bool by_loid = is_admitted_by_loid(olt, onu);
    const bool has_white_list = list.mode != AUTHENTICATION_DISABLED && list.active_type == AUTHENTICATION_WHITE_LIST;
    if (is_hybrid(mode) && has_white_list) return by_loid ? Admission::Admitted : by_address;
    const bool is_kept_out = by_address == Admission::NotListed || by_address == Admission::BlackListed;
    return by_loid || is_kept_out ? by_address : Admission::NotListed;
}

} // namespace sdk_sim

using namespace sdk_sim;

int16_t CTC_STACK_add_auth_loid_data(int16_t olt_id, const char* loid, const char* password)
{
    return on_table(add_loid, olt_id, in(olt_id, as_text(loid), as_text(password)),
                    [&](LoidTable& table) { return add(table, loid, password); });
}

int16_t CTC_STACK_remove_auth_loid_data(int16_t olt_id, const char* loid)
{
    return on_table(remove_loid, olt_id, in(olt_id, as_text(loid)), [&](LoidTable& table) {
        const auto entry = find_loid(table, loid);
        if (entry == table.entries.end()) return PARAMETER_ERROR;
        table.entries.erase(entry);
        return SUCCESS;
    });
}

int16_t CTC_STACK_get_auth_loid_data_table(int16_t olt_id, CTC_loid_table* table)
{
    return on_olt(get_loids, olt_id, in(olt_id), out(TableResult{table}), [&](Olt& olt) {
        *table = {};
        for (const LoidEntry& entry : olt.configuration.loid_table.entries) {
            CTC_loid_data& row = table->entries[table->count++];
            entry.loid.copy(row.loid, CTC_LOID_SIZE - 1);
            entry.password.copy(row.password, CTC_LOID_PASSWORD_SIZE - 1);
        }
        return SUCCESS;
    });
}

int16_t CTC_STACK_set_auth_mode(int16_t olt_id, int32_t mode)
{
    return on_table(set_auth_mode, olt_id, in(olt_id, mode), [&](LoidTable& table) {
        if (mode < CTC_AUTH_MAC || mode > CTC_AUTH_HYBRID_ANY_PASSWORD) return PARAMETER_ERROR;
        table.mode = mode;
        return SUCCESS;
    });
}

int16_t CTC_STACK_get_auth_mode(int16_t olt_id, int32_t* mode)
{
    return on_olt(get_auth_mode, olt_id, in(olt_id), out(mode), [&](Olt& olt) {
        *mode = olt.configuration.loid_table.mode;
        return SUCCESS;
    });
}

int16_t CTC_STACK_set_loid_db_llid(int16_t olt_id, const char* loid, int16_t llid)
{
    return on_table(set_loid_llid, olt_id, in(olt_id, as_text(loid), llid), [&](LoidTable& table) {
        if (!is_link(llid)) return PARAMETER_ERROR;
        return *loid == '\0' ? set_free(table, llid) : bind(table, loid, llid);
    });
}

int16_t CTC_STACK_get_loid_id_by_llid(int16_t olt_id, char loid[CTC_LOID_SIZE], int16_t llid)
{
    return on_olt(get_loid_llid, olt_id, in(olt_id, llid), out(as_text(loid, CTC_LOID_SIZE)), [&](Olt& olt) {
        if (!is_link(llid)) return PARAMETER_ERROR;
        const LoidTable& table = olt.configuration.loid_table;
        const auto owner = find_link(table, llid);
        if (owner == table.entries.end()) return QUERY_FAILED;
        loid[owner->loid.copy(loid, CTC_LOID_SIZE - 1)] = '\0';
        return SUCCESS;
    });
}
