// SPDX-License-Identifier: Apache-2.0
// VLAN tags of the management traffic between the host and an OLT: whether frames are tagged, with which VLAN, and with
// which priority for each kind of frame. A command names the item that it sets or shows.
#include "olt/mng_vlan.h"

#include "CLI_GENERAL/arguments.h"
#include "CLI_GENERAL/command.h"
#include "CLI_GENERAL/output.h"

using namespace epon;

namespace {

constexpr Word cfg_items[] = {{"host-to-olt-vlan", MNG_VLAN_HOST_TO_OLT}, {"olt-to-host-vlan", MNG_VLAN_OLT_TO_HOST}};

constexpr Word id_items[] = {{"host-to-olt-vlan-id", MNG_VLAN_HOST_TO_OLT_ID},
                             {"olt-to-host-vlan-id", MNG_VLAN_OLT_TO_HOST_ID}};

// The last one is shown, but follows another one when that is set.
constexpr Word prio_items[] = {{"host-to-olt-vlan-prio", MNG_VLAN_HOST_TO_OLT_PRIO},
                               {"olt-to-host-vlan-mng-prio", MNG_VLAN_OLT_TO_HOST_MNG_PRIO},
                               {"olt-to-host-vlan-oam-prio", MNG_VLAN_OLT_TO_HOST_OAM_PRIO},
                               {"olt-to-host-vlan-protocol-prio", MNG_VLAN_OLT_TO_HOST_PROTOCOL_PRIO},
                               {"olt-to-host-vlan-igmp-prio", MNG_VLAN_OLT_TO_HOST_IGMP_PRIO}};

constexpr WordTable cfg_table = {"mng_vlan", cfg_items};
constexpr WordTable id_table = {"mng_vlan", id_items};
constexpr WordTable prio_table = {"mng_vlan", std::span(prio_items).first<4>()};
constexpr WordTable shown_prio_table = {"mng_vlan", prio_items};

// By item.
constexpr const char* labels[] = {
    "host to olt vlan",          "olt to host vlan",           "host to olt vlan id",
    "olt to host vlan id",       "host to olt vlan prio",      "olt to host vlan mng prio",
    "olt to host vlan oam prio", "olt to host vlan igmp prio", "olt to host vlan protocol prio",
};
static_assert(sizeof labels / sizeof labels[0] == MNG_VLAN_ITEM_LIMIT);

// The two words that every form begins with.
bool read_item(vty* session, char** argv, const WordTable& items, int16_t* olt_id, int32_t* item)
{
    return read_olt_id(session, argv[0], olt_id) && read_word(session, argv[1], "mng_vlan", items, item);
}

int set_number(vty* session, char** argv, const WordTable& items, const NumberRule& rule)
{
    int16_t olt_id;
    int32_t item;
    int32_t value;
    if (!read_item(session, argv, items, &olt_id, &item)) return -1;
    if (!read_number(session, argv[2], rule, &value)) return -1;
    return report(session, NEP_set_olt_management_vlan_configuration(olt_id, item, value));
}

// The value in words, or as a number when words is null.
int show(vty* session, char** argv, const WordTable& items, const WordTable* words)
{
    int16_t olt_id;
    int32_t item;
    int32_t value;
    if (!read_item(session, argv, items, &olt_id, &item)) return -1;
    const int16_t code = NEP_get_olt_management_vlan_configuration(olt_id, item, &value);
    if (code != 0) return report(session, code);
    const Field field = {labels[item], words != nullptr ? FieldFormat::Int32Word : FieldFormat::Int32, 0, words};
    print_olt_id(session, olt_id);
    print_fields(session, &value, {&field, 1});
    return 0;
}

} // namespace

int set_olt_mng_vlan_cfg(cmd_element*, vty* session, int, char** argv)
{
    int16_t olt_id;
    int32_t item;
    int32_t value;
    if (!read_item(session, argv, cfg_table, &olt_id, &item)) return -1;
    if (!read_word(session, argv[2], "mng_vlan", enable_disable, &value)) return -1;
    return report(session, NEP_set_olt_management_vlan_configuration(olt_id, item, value));
}

int set_olt_mng_vlan_id(cmd_element*, vty* session, int, char** argv)
{
    return set_number(session, argv, id_table, unsigned_16("VLAN"));
}

int set_olt_mng_vlan_prio(cmd_element*, vty* session, int, char** argv)
{
    return set_number(session, argv, prio_table, unsigned_16("PRIO"));
}

int show_olt_mng_vlan_cfg(cmd_element*, vty* session, int, char** argv)
{
    return show(session, argv, cfg_table, &enable_disable);
}

int show_olt_mng_vlan_id(cmd_element*, vty* session, int, char** argv)
{
    return show(session, argv, id_table, nullptr);
}

int show_olt_mng_vlan_prio(cmd_element*, vty* session, int, char** argv)
{
    return show(session, argv, shown_prio_table, nullptr);
}

static constinit cmd_element set_olt_mng_vlan_cfg_cmd =
    command("set mng-vlan olt OLT_INDEX (host-to-olt-vlan|olt-to-host-vlan) (enable|disable)", set_olt_mng_vlan_cfg,
            "Change a setting\n"
            "VLAN tags of the management traffic between the host and an OLT\n"
            "An OLT\n"
            "Index of the OLT, 0-15, decimal or with 0x hexadecimal\n"
            "host-to-olt-vlan: frames to the OLT; olt-to-host-vlan: frames to the host\n"
            "enable: the frames are tagged; disable: the frames are not tagged\n");

static constinit cmd_element set_olt_mng_vlan_id_cmd =
    command("set mng-vlan olt OLT_INDEX (host-to-olt-vlan-id|olt-to-host-vlan-id) vlan VLAN", set_olt_mng_vlan_id,
            "Change a setting\n"
            "VLAN tags of the management traffic between the host and an OLT\n"
            "An OLT\n"
            "Index of the OLT, 0-15, decimal or with 0x hexadecimal\n"
            "host-to-olt-vlan-id: VLAN of frames to the OLT; olt-to-host-vlan-id: VLAN of frames to the host\n"
            "The new VLAN\n"
            "VLAN, 0-4095, decimal or with 0x hexadecimal\n");

static constinit cmd_element set_olt_mng_vlan_prio_cmd =
    command("set mng-vlan olt OLT_INDEX (host-to-olt-vlan-prio|olt-to-host-vlan-mng-prio|olt-to-host-vlan-oam-prio|"
            "olt-to-host-vlan-protocol-prio) prio PRIO",
            set_olt_mng_vlan_prio,
            "Change a setting\n"
            "VLAN tags of the management traffic between the host and an OLT\n"
            "An OLT\n"
            "Index of the OLT, 0-15, decimal or with 0x hexadecimal\n"
            "host-to-olt-vlan-prio: frames to the OLT; olt-to-host-vlan-mng-prio: management frames to the host; "
            "olt-to-host-vlan-oam-prio: OAM frames to the host; "
            "olt-to-host-vlan-protocol-prio: protocol frames to the host\n"
            "The new priority\n"
            "Priority, 0-7, 7 the highest, decimal or with 0x hexadecimal\n");

static constinit cmd_element show_olt_mng_vlan_cfg_cmd =
    command("show mng-vlan olt OLT_INDEX (host-to-olt-vlan|olt-to-host-vlan)", show_olt_mng_vlan_cfg,
            "Show settings and state\n"
            "VLAN tags of the management traffic between the host and an OLT\n"
            "An OLT\n"
            "Index of the OLT, 0-15, decimal or with 0x hexadecimal\n"
            "host-to-olt-vlan: frames to the OLT; olt-to-host-vlan: frames to the host\n");

static constinit cmd_element show_olt_mng_vlan_id_cmd =
    command("show mng-vlan olt OLT_INDEX (host-to-olt-vlan-id|olt-to-host-vlan-id)", show_olt_mng_vlan_id,
            "Show settings and state\n"
            "VLAN tags of the management traffic between the host and an OLT\n"
            "An OLT\n"
            "Index of the OLT, 0-15, decimal or with 0x hexadecimal\n"
            "host-to-olt-vlan-id: VLAN of frames to the OLT; olt-to-host-vlan-id: VLAN of frames to the host\n");

static constinit cmd_element show_olt_mng_vlan_prio_cmd =
    command("show mng-vlan olt OLT_INDEX (host-to-olt-vlan-prio|olt-to-host-vlan-mng-prio|olt-to-host-vlan-oam-prio|"
            "olt-to-host-vlan-igmp-prio|olt-to-host-vlan-protocol-prio)",
            show_olt_mng_vlan_prio,
            "Show settings and state\n"
            "VLAN tags of the management traffic between the host and an OLT\n"
            "An OLT\n"
            "Index of the OLT, 0-15, decimal or with 0x hexadecimal\n"
            "host-to-olt-vlan-prio: frames to the OLT; olt-to-host-vlan-mng-prio: management frames to the host; "
            "olt-to-host-vlan-oam-prio: OAM frames to the host; olt-to-host-vlan-igmp-prio: IGMP frames to the host; "
            "olt-to-host-vlan-protocol-prio: protocol frames to the host\n");

namespace epon {

void install_mng_vlan()
{
    install({{&set_olt_mng_vlan_cfg_cmd, in(CONFIG_NODE)},
             {&set_olt_mng_vlan_id_cmd, in(CONFIG_NODE)},
             {&set_olt_mng_vlan_prio_cmd, in(CONFIG_NODE)},
             {&show_olt_mng_vlan_cfg_cmd, in(CONFIG_NODE)},
             {&show_olt_mng_vlan_id_cmd, in(CONFIG_NODE)},
             {&show_olt_mng_vlan_prio_cmd, in(CONFIG_NODE)}});
}

} // namespace epon
