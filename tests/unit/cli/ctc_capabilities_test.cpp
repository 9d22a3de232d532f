// SPDX-License-Identifier: Apache-2.0
#include <string>

#include "CTC_STACK_CLI/capabilities.h"
#include "ctc_fixture.h"

namespace {

class CtcCapabilities : public Ctc {
  protected:
    void load(const std::string& capabilities)
    {
        load_onu("[olt.onu.capabilities]\n" + capabilities);
        enter(ENABLE_NODE);
    }
};

TEST_F(CtcCapabilities, ServicesAndPorts)
{
    expect_report("capabilities", "CTC_STACK_get_onu_capabilities",
                  "ge_service: supported \r\n"
                  "fe_service: not-supported \r\n"
                  "voip_service: not-supported \r\n"
                  "tdm_ces_service: not-supported \r\n"
                  "number_of_ge_ports: 1 \r\n"
                  "number_of_fe_ports: 0 \r\n"
                  "number_of_pots_ports: 0 \r\n"
                  "number_of_e1_ports: 0 \r\n"
                  "ge_ports_bitmap: 0x1 \r\n"
                  "fe_ports_bitmap: 0x0 \r\n"
                  "uplink_queues: 8 \r\n"
                  "uplink_queues_per_port: 8 \r\n"
                  "downlink_queues: 8 \r\n"
                  "downlink_queues_per_port: 8 \r\n"
                  "battery_backup: not-supported \r\n"
                  "fec: supported \r\n",
                  "{ge_ports=1,fe_ports=0,pots_ports=0,e1_ports=0}");
    expect_show_refusals("capabilities", "CTC_STACK_get_onu_capabilities");
}

TEST_F(CtcCapabilities, KindAndBuild)
{
    expect_report("capabilities-2", "CTC_STACK_get_onu_capabilities_2",
                  "onu_type: sfu \r\n"
                  "multi_llid: 0 \r\n"
                  "protection_type: none \r\n"
                  "number_of_pon_interfaces: 1 \r\n"
                  "number_of_slots: 0 \r\n"
                  "number_of_interface_types: 1 \r\n"
                  "interface_type: ge \r\n"
                  "number_of_ports: 1 \r\n"
                  "battery_backup: not-supported \r\n",
                  "{onu_type=0,multi_llid=0,protection_type=0,pon_interfaces=1,slots=0,interface_types=1}");
    expect_show_refusals("capabilities-2", "CTC_STACK_get_onu_capabilities_2");
}

TEST_F(CtcCapabilities, LaterAbilities)
{
    expect_report("capabilities-3", "CTC_STACK_get_onu_capabilities_3",
                  "ipv6: supported \r\n"
                  "power_supply_control: tx \r\n"
                  "service_sla: 0 \r\n",
                  "{ipv6=1,power_supply_control=1,service_sla=0}");
    expect_show_refusals("capabilities-3", "CTC_STACK_get_onu_capabilities_3");
}

TEST_F(CtcCapabilities, OnuWithEverything)
{
    load(R"(
type = "mdu-small-card"
ge_ports = 64
fe_ports = 24
pots_ports = 2
e1_ports = 3
queues = 255
queues_per_port = 4
battery_backup = true
fec = false
multi_llid = 8
protection = "type-d"
pon_interfaces = 2
slots = 63
ipv6 = false
power_supply_control = "tx-rx"
service_sla = 255
)");
    EXPECT_EQ(type("show ctc onu capabilities 0 5"), "OLT_id: 0 \r\nONU_id: 5 \r\n"
                                                     "ge_service: supported \r\n"
                                                     "fe_service: supported \r\n"
                                                     "voip_service: supported \r\n"
                                                     "tdm_ces_service: supported \r\n"
                                                     "number_of_ge_ports: 64 \r\n"
                                                     "number_of_fe_ports: 24 \r\n"
                                                     "number_of_pots_ports: 2 \r\n"
                                                     "number_of_e1_ports: 3 \r\n"
                                                     "ge_ports_bitmap: 0xffffffffffffffff \r\n"
                                                     "fe_ports_bitmap: 0xffffff \r\n"
                                                     "uplink_queues: 255 \r\n"
                                                     "uplink_queues_per_port: 4 \r\n"
                                                     "downlink_queues: 255 \r\n"
                                                     "downlink_queues_per_port: 4 \r\n"
                                                     "battery_backup: supported \r\n"
                                                     "fec: not-supported \r\n");
    EXPECT_EQ(type("show ctc onu capabilities-2 0 5"), "OLT_id: 0 \r\nONU_id: 5 \r\n"
                                                       "onu_type: mdu-small-card \r\n"
                                                       "multi_llid: 8 \r\n"
                                                       "protection_type: type-d \r\n"
                                                       "number_of_pon_interfaces: 2 \r\n"
                                                       "number_of_slots: 63 \r\n"
                                                       "number_of_interface_types: 4 \r\n"
                                                       "interface_type: ge \r\n"
                                                       "number_of_ports: 64 \r\n"
                                                       "interface_type: fe \r\n"
                                                       "number_of_ports: 24 \r\n"
                                                       "interface_type: voip \r\n"
                                                       "number_of_ports: 2 \r\n"
                                                       "interface_type: tdm \r\n"
                                                       "number_of_ports: 3 \r\n"
                                                       "battery_backup: supported \r\n");
    EXPECT_EQ(type("show ctc onu capabilities-3 0 5"), "OLT_id: 0 \r\nONU_id: 5 \r\n"
                                                       "ipv6: not-supported \r\n"
                                                       "power_supply_control: tx-rx \r\n"
                                                       "service_sla: 255 \r\n");
}

TEST_F(CtcCapabilities, EveryKindHasItsWord)
{
    for (const char* kind : {"sfu", "hgu", "sbu", "mdu-box", "mdu-small-card", "mdu-medium-card", "mtu"}) {
        load(std::string("type = \"") + kind + "\"\n");
        EXPECT_NE(type("show ctc onu capabilities-2 0 5").find(std::string("onu_type: ") + kind + " \r\n"),
                  std::string::npos);
    }
    load("protection = \"type-c\"\npower_supply_control = \"none\"\n");
    EXPECT_NE(type("show ctc onu capabilities-2 0 5").find("protection_type: type-c \r\n"), std::string::npos);
    EXPECT_NE(type("show ctc onu capabilities-3 0 5").find("power_supply_control: none \r\n"), std::string::npos);
}

TEST_F(CtcCapabilities, DefaultsFollowTheRate)
{
    enter(ENABLE_NODE);
    EXPECT_NE(type("show ctc onu capabilities 0 11").find("number_of_pots_ports: 2 \r\n"), std::string::npos);
    EXPECT_NE(type("show ctc onu capabilities-2 0 11").find("onu_type: hgu \r\n"), std::string::npos);
    EXPECT_NE(type("show ctc onu capabilities-2 0 10").find("onu_type: sbu \r\n"), std::string::npos);
    EXPECT_NE(type("show ctc onu capabilities-2 0 10").find("number_of_pon_interfaces: 2 \r\n"), std::string::npos);
}

} // namespace
