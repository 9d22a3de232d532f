// SPDX-License-Identifier: Apache-2.0
#include <string>

#include "CTC_STACK_CLI/tx_power.h"
#include "ctc_fixture.h"
#include "event_lines.h"

namespace {

class CtcTxPower : public Ctc {
  protected:
    static bool is_registered(int16_t onu_id)
    {
        int32_t mode;
        EXPECT_EQ(NEP_get_onu_mode(0, onu_id, &mode), 0);
        return mode == ONU_MODE_REGISTERED;
    }

    // The command of the ONU node, with these words.
    std::string control(const std::string& action, const std::string& onu_sn = "02-00-00-00-00-05",
                        const std::string& optical = "active", const std::string& broadcast = "false")
    {
        return type("ctc onu-tx-power-supply-control action " + action + " onu-sn " + onu_sn + " optical " + optical +
                    " broadcast " + broadcast);
    }
    // The command of the OLT node.
    std::string control_all(const std::string& action, const std::string& onu_sn = "02-00-00-00-00-05",
                            const std::string& optical = "active")
    {
        return type("ctc onu-tx-power-supply-control-bc action " + action + " onu-sn " + onu_sn + " optical " +
                    optical);
    }
};

TEST_F(CtcTxPower, WordsAndTheirValues)
{
    enter_onu(10); // which has two transmitters
    const std::string call = "CTC_STACK_onu_tx_power_supply_control(0, 10, 02-00-00-00-00-0a, ";
    const std::string mac = "02-00-00-00-00-0a";
    EXPECT_EQ(control("reenable", mac), "");
    EXPECT_EQ(result, 0);
    EXPECT_EQ(journal(), Calls{call + "0, 0, 0) = 0"});
    EXPECT_EQ(control("65534", mac, "standby"), "");
    EXPECT_EQ(journal(), Calls{call + "1, 65534, 0) = 0"});
    EXPECT_EQ(control("1", mac, "standby", "true"), "");
    EXPECT_EQ(journal(), Calls{call + "1, 1, 1) = 0"});
    EXPECT_EQ(control("shutdown_permanent", mac, "both", "false"), "");
    EXPECT_EQ(result, 0);
    EXPECT_EQ(journal(), Calls{call + "2, 65535, 0) = 0"});
    EXPECT_EQ(control("1", mac), NO_ONU); // it is silent now
    EXPECT_EQ(result, -17002);
}

TEST_F(CtcTxPower, OltNodeSendsToAllOnus)
{
    enter(OLT_NODE);
    EXPECT_EQ(control_all("5"), "");
    EXPECT_EQ(result, 0);
    EXPECT_EQ(journal(), Calls{"CTC_STACK_onu_tx_power_supply_control(0, 4095, 02-00-00-00-00-05, 0, 5, 1) = 0"});
    EXPECT_EQ(control_all("shutdown_permanent", "02-00-00-00-00-77", "both"), ""); // nobody is meant, nobody answers
    EXPECT_EQ(journal(), Calls{"CTC_STACK_onu_tx_power_supply_control(0, 4095, 02-00-00-00-00-77, 2, 65535, 1) = 0"});
    enter(OLT_NODE, 1);
    EXPECT_EQ(control_all("reenable"), NO_OLT);
    EXPECT_EQ(result, -17003);
    enter(OLT_NODE);
    inject("CTC_STACK_onu_tx_power_supply_control", -17001);
    EXPECT_EQ(control_all("reenable"), "Command return error.\r\nquery failed (error code : -17001)\r\n");
    EXPECT_EQ(result, -17001);
}

TEST_F(CtcTxPower, OnuIsSilentForSomeSeconds)
{
    enter_onu(5);
    EventLines events;
    EXPECT_EQ(control("30"), "");
    EXPECT_FALSE(is_registered(5));
    EXPECT_EQ(events.after(0), "onu-deregistered: olt 0, onu 5, mac 02-00-00-00-00-05, reason mpcp-timeout \r\n");
    EXPECT_EQ(events.after(29999), "");
    EXPECT_NE(events.after(1).find("onu-registered: olt 0, onu 5"), std::string::npos);
    EXPECT_TRUE(is_registered(5));
}

TEST_F(CtcTxPower, OnuIsSilentForGoodUntilItIsReenabled)
{
    enter_onu(5);
    control("shutdown_permanent");
    sdk_sim::advance_clock(100 * 1000 * 1000);
    EXPECT_FALSE(is_registered(5));
    // A restart of the OLT does not help.
    enter(CONFIG_NODE);
    type("no olt 0");
    type("olt 0 00-0a-c4-00-00-01 image flash");
    sdk_sim::advance_clock(20000);
    EXPECT_TRUE(is_registered(10));
    EXPECT_FALSE(is_registered(5));
    enter(OLT_NODE);
    control_all("reenable");
    sdk_sim::advance_clock(1000);
    EXPECT_TRUE(is_registered(5));
}

TEST_F(CtcTxPower, SilenceOutlastsARestartOfTheOlt)
{
    enter_onu(5);
    control("60");
    enter(CONFIG_NODE);
    type("no olt 0");
    type("olt 0 00-0a-c4-00-00-01 image flash");
    sdk_sim::advance_clock(59999);
    EXPECT_TRUE(is_registered(10));
    EXPECT_FALSE(is_registered(5));
    sdk_sim::advance_clock(1);
    EXPECT_TRUE(is_registered(5));
}

TEST_F(CtcTxPower, LaterOrderCounts)
{
    enter(OLT_NODE);
    control_all("10");
    sdk_sim::advance_clock(5000);
    control_all("10");
    sdk_sim::advance_clock(5000);
    EXPECT_FALSE(is_registered(5));
    sdk_sim::advance_clock(5000);
    EXPECT_TRUE(is_registered(5));
    control_all("10");
    control_all("shutdown_permanent");
    sdk_sim::advance_clock(60000);
    EXPECT_FALSE(is_registered(5));
}

TEST_F(CtcTxPower, OnlyTheOnuThatIsMeantObeys)
{
    enter_onu(5);
    EXPECT_EQ(control("30", "02-00-00-00-00-0a"), ONU_BAD_PARAMETER);
    EXPECT_EQ(result, -17009);
    EXPECT_TRUE(is_registered(5));
    EXPECT_TRUE(is_registered(10));
    EXPECT_EQ(control("30", "02-00-00-00-00-0a", "active", "true"), ""); // all hear it
    EXPECT_TRUE(is_registered(5));
    EXPECT_FALSE(is_registered(10));
}

TEST_F(CtcTxPower, StandbyTransmitter)
{
    enter_onu(5); // has none
    EXPECT_EQ(control("30", "02-00-00-00-00-05", "standby"), ONU_BAD_PARAMETER);
    EXPECT_EQ(result, -17009);
    enter_onu(10);
    EXPECT_EQ(control("30", "02-00-00-00-00-0a", "standby"), "");
    EXPECT_TRUE(is_registered(10));
    EXPECT_EQ(control("30", "02-00-00-00-00-0a", "both"), "");
    EXPECT_FALSE(is_registered(10));
}

TEST_F(CtcTxPower, OnuWithoutTheAbilityRefuses)
{
    load_onu(R"(
[olt.onu.capabilities]
power_supply_control = "none"
)");
    enter_onu(5);
    EXPECT_EQ(control("30"), ONU_BAD_PARAMETER);
    EXPECT_EQ(control("30", "02-00-00-00-00-05", "active", "true"), "");
    EXPECT_TRUE(is_registered(5));
}

TEST_F(CtcTxPower, Refusals)
{
    enter_onu(5);
    const std::string mac = "02-00-00-00-00-05";
    const std::pair<std::vector<std::string>, const char*> cases[] = {
        {{"x", mac, "active", "true"}, "Error reading action parameter for command from input, aborting\r\n"},
        {{"-1", mac, "active", "true"}, "Error reading negative value of action parameter from input, aborting\r\n"},
        {{"65536", mac, "active", "true"},
         "Error in range of action parameter for command from input min:0 max:65535, aborting\r\n"},
        {{"1", " ", "active", "true"}, "Error reading mac_address parameter for command from input, aborting\r\n"},
        {{"1", mac + "6", "active", "true"}, "Error reading mac_address has wrong length, aborting\r\n"},
        {{"1", "02-00", "active", "true"},
         "Error reading MAC address parameter from the MAC address string, aborting\r\n"},
        {{"1", mac, "all", "true"}, "Error reading optical parameter (of the type optical), aborting\r\n"},
        {{"1", mac, "active", "truetruetr"},
         "Error reading broadcast parameter, internal buffer is too short, aborting!\r\n"},
        {{"1", mac, "active", "truetruet"}, "Error reading broadcast parameter (of the type true_false), aborting\r\n"},
        {{"1", mac, "active", " "}, "Error reading broadcast parameter for command from input, aborting\r\n"},
    };
    for (const auto& [words, message] : cases) {
        EXPECT_EQ(call(onu_tx_power_supply_control, words), message);
        EXPECT_EQ(result, -1);
    }
    EXPECT_EQ(journal(), Calls{});
    // A hexadecimal action, and one outside the words' range.
    EXPECT_EQ(call(onu_tx_power_supply_control, {"0xffff", mac, "active", "false"}), "");
    EXPECT_EQ(journal(), Calls{"CTC_STACK_onu_tx_power_supply_control(0, 5, 02-00-00-00-00-05, 0, 65535, 0) = 0"});
    expect_ctc_failures("ctc onu-tx-power-supply-control action 1 onu-sn 02-00-00-00-00-05 optical active "
                        "broadcast false",
                        "CTC_STACK_onu_tx_power_supply_control");
    for (const int32_t optical : {-1, 3})
        EXPECT_EQ(CTC_STACK_onu_tx_power_supply_control(0, 10, reinterpret_cast<const uint8_t*>("\2\0\0\0\0\12"),
                                                        optical, 1, 0),
                  -4);
    EXPECT_EQ(CTC_STACK_onu_tx_power_supply_control(0, 10, nullptr, 0, 1, 1), -4);
}

} // namespace
