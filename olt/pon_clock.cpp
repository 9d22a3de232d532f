// SPDX-License-Identifier: Apache-2.0
// The clock that an OLT's PON runs by, in time quanta of 16 ns: its time, an offset, and setting one OLT's clock by
// another's, as a switch-over between OLTs needs it.
#include "olt/pon_clock.h"

#include "CLI_GENERAL/arguments.h"
#include "CLI_GENERAL/command.h"
#include "CLI_GENERAL/output.h"

using namespace epon;

namespace {

constexpr Field clock_field = {"olt pon clock", FieldFormat::Uint32, 0};

} // namespace

int show_olt_pon_clock(cmd_element*, vty* session, int, char** argv)
{
    int16_t olt_id;
    uint32_t clock;
    if (!read_olt_id(session, argv[0], &olt_id)) return -1;
    const int16_t code = NEP_get_olt_pon_clock(olt_id, &clock);
    if (code != 0) return report(session, code);
    print_olt_id(session, olt_id);
    print_fields(session, &clock, {&clock_field, 1});
    return 0;
}

int set_olt_pon_clock_offset(cmd_element*, vty* session, int, char** argv)
{
    int16_t olt_id;
    uint32_t offset;
    if (!read_olt_id(session, argv[0], &olt_id)) return -1;
    if (!read_number(session, argv[1], unsigned_32("OFFSET"), &offset)) return -1;
    return report(session, NEP_set_olt_pon_clock_offset(olt_id, offset));
}

int set_sync_olts_pon_clock(cmd_element*, vty* session, int, char** argv)
{
    int16_t master;
    int16_t slave;
    if (!read_olt_id(session, argv[0], &master) || !read_olt_id(session, argv[1], &slave)) return -1;
    return report(session, Sync_olts_pon_clock(master, slave));
}

static constinit cmd_element show_olt_pon_clock_cmd =
    command("show olt-pon-clock olt OLT_INDEX", show_olt_pon_clock,
            "Show settings and state\n"
            "Time of the PON's clock, in time quanta of 16 ns\n"
            "An OLT\n"
            "Index of the OLT, 0-15, decimal or with 0x hexadecimal\n");

static constinit cmd_element set_olt_pon_clock_offset_cmd =
    command("set olt-pon-clock-offset olt OLT_INDEX offset OFFSET", set_olt_pon_clock_offset,
            "Change a setting\n"
            "What the PON's clock is ahead of its own time\n"
            "An OLT\n"
            "Index of the OLT, 0-15, decimal or with 0x hexadecimal\n"
            "The new offset\n"
            "Offset, in time quanta of 16 ns, 0-2147483647, or 0x0-0xffffffff hexadecimal\n");

static constinit cmd_element set_sync_olts_pon_clock_cmd =
    command("set sync-pon-clock master_olt OLT_INDEX slave_olt OLT_INDEX", set_sync_olts_pon_clock,
            "Change a setting\n"
            "Set the PON clock of one OLT by that of another\n"
            "The OLT whose clock is taken\n"
            "Index of the OLT, 0-15, decimal or with 0x hexadecimal\n"
            "The OLT whose clock is set\n"
            "Index of the OLT, 0-15, decimal or with 0x hexadecimal\n");

namespace epon {

void install_pon_clock()
{
    install({{&show_olt_pon_clock_cmd, in(CONFIG_NODE)},
             {&set_olt_pon_clock_offset_cmd, in(CONFIG_NODE, OLT_NODE)},
             {&set_sync_olts_pon_clock_cmd, in(CONFIG_NODE)}});
}

} // namespace epon
