// SPDX-License-Identifier: Apache-2.0
// Registers of the PHYs behind an OLT's management interface.
#include "olt/mdio.h"

#include "CLI_GENERAL/arguments.h"
#include "CLI_GENERAL/command.h"
#include "CLI_GENERAL/output.h"

using namespace epon;

namespace {

constexpr NumberRule five_bits(const char* name)
{
    return unsigned_range(name, 0, MDIO_ADDRESS_LIMIT - 1);
}

} // namespace

int mdio_reg(cmd_element*, vty* session, int, char** argv)
{
    int32_t phy;
    int32_t address;
    int32_t value;
    if (!read_number(session, argv[0], five_bits("phy"), &phy)) return -1;
    if (!read_number(session, argv[1], five_bits("register"), &address)) return -1;
    if (!read_number(session, argv[2], unsigned_16("REG_VALUE"), &value)) return -1;
    return report(session, NEP_write_mdio_register(session->olt_id, phy, address, value));
}

int mdio45_reg(cmd_element*, vty* session, int, char** argv)
{
    int32_t port;
    int32_t device;
    int32_t address;
    int32_t value;
    if (!read_number(session, argv[0], five_bits("port"), &port)) return -1;
    if (!read_number(session, argv[1], five_bits("device"), &device)) return -1;
    if (!read_number(session, argv[2], unsigned_16("register"), &address)) return -1;
    if (!read_number(session, argv[3], unsigned_16("REG_VALUE"), &value)) return -1;
    return report(session, NEP_write_mdio45_register(session->olt_id, port, device, address, value));
}

static constinit cmd_element mdio_reg_cmd = command("mdio phy <0-31> register <0-31> value REG_VALUE", mdio_reg,
                                                    "Write a register of a PHY (IEEE 802.3 clause 22)\n"
                                                    "Which PHY\n"
                                                    "Address of the PHY, 0-31\n"
                                                    "Which register\n"
                                                    "Address of the register, 0-31\n"
                                                    "What is written\n"
                                                    "Value of the register, 0-65535, decimal or with 0x hexadecimal\n");

static constinit cmd_element mdio45_reg_cmd =
    command("mdio45 port <0-31> device <0-31> register <0-65535> value REG_VALUE", mdio45_reg,
            "Write a register of a PHY's device (IEEE 802.3 clause 45)\n"
            "Which port\n"
            "Address of the port, 0-31\n"
            "Which device of the port\n"
            "Address of the device, 0-31: 1 PMA/PMD, 2 WIS, 3 PCS, 4 PHY XS, 5 DTE XS\n"
            "Which register\n"
            "Address of the register, 0-65535\n"
            "What is written\n"
            "Value of the register, 0-65535, decimal or with 0x hexadecimal\n");

namespace epon {

void install_mdio()
{
    install({{&mdio_reg_cmd, in(OLT_NODE)}, {&mdio45_reg_cmd, in(OLT_NODE)}});
}

} // namespace epon
