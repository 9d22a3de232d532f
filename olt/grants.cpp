// SPDX-License-Identifier: Apache-2.0
// Grants set by hand on an OLT whose bandwidth allocation is stopped: a table is put together record by record and then
// applied as a whole. Each OLT has one table, which all sessions edit; it lives until it is cleared.
#include "olt/grants.h"

#include <cstring>

#include "CLI_GENERAL/arguments.h"
#include "CLI_GENERAL/command.h"
#include "CLI_GENERAL/output.h"

using namespace epon;

namespace {

struct GrantTable {
    uint32_t count;
    OLT_grant grants[GRANT_TABLE_SIZE];
};

constinit GrantTable grant_tables[OLT_INDEX_LIMIT] = {};

// Null when no such OLT can be, with the line that the SDK's refusal would print.
GrantTable* table_of_olt(vty* session, int* result)
{
    if (session->olt_id >= 0 && session->olt_id < OLT_INDEX_LIMIT) return &grant_tables[session->olt_id];
    constexpr int16_t OLT_NOT_EXIST = -1003;
    *result = report(session, OLT_NOT_EXIST);
    return nullptr;
}

// On false the refusal is printed, and *result is what the handler returns.
bool read_granted_link(vty* session, const char* text, int16_t* llid, int* result)
{
    // The forms have the same number of words; only the keyword tells them apart.
    if (strstr(session->buf, "llid-mac-address") != nullptr)
        return read_link_by_mac(session, session->olt_id, text, link_to_act_on, llid, result);
    *result = -1;
    return read_llid(session, text, llid);
}

} // namespace

int set_grants_clear(cmd_element*, vty* session, int, char**)
{
    int result;
    GrantTable* table = table_of_olt(session, &result);
    if (table == nullptr) return result;
    table->count = 0;
    return 0;
}

int set_grants_add(cmd_element*, vty* session, int, char** argv)
{
    OLT_grant grant;
    int result;
    GrantTable* table = table_of_olt(session, &result);
    if (table == nullptr) return result;
    if (!read_number(session, argv[1], unsigned_16("GRANT_LENGTH"), &grant.length)) return -1;
    if (!read_granted_link(session, argv[0], &grant.llid, &result)) return result;
    if (table->count == GRANT_TABLE_SIZE) {
        RBX_vty_out(session, "Error, the table of grants is full (%d records), aborting%s", GRANT_TABLE_SIZE,
                    VTY_NEWLINE(session));
        return -1;
    }
    table->grants[table->count++] = grant;
    return 0;
}

int set_grants_apply(cmd_element*, vty* session, int, char** argv)
{
    uint32_t cycle_size;
    int result;
    const GrantTable* table = table_of_olt(session, &result);
    if (table == nullptr) return result;
    if (!read_number(session, argv[0], unsigned_32("GRANT_CYCLE_SIZE"), &cycle_size)) return -1;
    return report(session, NEP_set_grants(session->olt_id, table->grants, table->count, cycle_size));
}

static constinit cmd_element set_grants_clear_cmd =
    command("set-grants clear-table", set_grants_clear,
            "Grants set by hand, while no bandwidth allocation runs\n"
            "Empty this OLT's table of grants; what was applied stays in force\n");

static constinit cmd_element set_grants_add_cmd =
    command("set-grants add-record LLID_INDEX grant-length GRANT_LENGTH", set_grants_add,
            "Grants set by hand, while no bandwidth allocation runs\n"
            "Add a grant to this OLT's table, which holds up to 256\n"
            "Index of the link, 0-254, decimal or with 0x hexadecimal\n"
            "How long the link may send\n"
            "Length in time quanta of 16 ns, 1-65535, decimal or with 0x hexadecimal\n");

static constinit cmd_element set_grants_add_mac_cmd =
    command("set-grants add-record llid-mac-address AA-BB-CC-DD-EE-FF grant-length GRANT_LENGTH", set_grants_add,
            "Grants set by hand, while no bandwidth allocation runs\n"
            "Add a grant to this OLT's table, which holds up to 256\n"
            "Name the link by the MAC address of its ONU\n"
            "MAC address of the ONU, six hexadecimal fields\n"
            "How long the link may send\n"
            "Length in time quanta of 16 ns, 1-65535, decimal or with 0x hexadecimal\n");

static constinit cmd_element set_grants_apply_cmd =
    command("set-grants apply cycle-size GRANT_CYCLE_SIZE", set_grants_apply,
            "Grants set by hand, while no bandwidth allocation runs\n"
            "Give the grants of this OLT's table from now on, in their order\n"
            "How long a cycle of all grants takes\n"
            "Size in time quanta of 16 ns, at least as long as all grants, decimal or with 0x hexadecimal\n");

namespace epon {

void install_grants()
{
    install({{&set_grants_clear_cmd, in(OLT_PON_NODE)},
             {&set_grants_add_cmd, in(OLT_PON_NODE)},
             {&set_grants_add_mac_cmd, in(OLT_PON_NODE)},
             {&set_grants_apply_cmd, in(OLT_PON_NODE)}});
}

} // namespace epon
