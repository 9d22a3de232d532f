// SPDX-License-Identifier: Apache-2.0
#include "REMOTE_MANAGEMENT_CLI/uni_mac.h"

#include "managed_onus_fixture.h"

namespace {

constexpr const char* SET = "REMOTE_NEPONU_uni_set_port_configuration";

// The 18 words of the configuration command, with the record and the listing that follow from them.
struct Words {
    std::string values[18] = {"gmii",    "100m",        "full-duplex", "master",      "auto-negotiation-on",
                              "slave",   "enable",      "capable",     "capable",     "capable",
                              "capable", "not-capable", "capable",     "not-capable", "not-capable",
                              "capable", "single",      "0x1"};

    std::string line() const
    {
        constexpr const char* keywords[] = {
            "mac-type",  "mii-rate",       "duplex",        "gmii-master-mode", "auto-negotiate", "mode",
            "advertise", "adv-10-half",    "adv-10-full",   "adv-100-half",     "adv-100-full",   "adv-100-t4",
            "adv-pause", "adv-asym-pause", "adv-1000-half", "adv-1000-full",    "adv-port-type",  "phy-address"};
        std::string text = "remote uni-mac port-configuration";
        for (size_t i = 0; i < 18; ++i)
            text += std::string(" ") + keywords[i] + " " + values[i];
        return text;
    }

    std::string listing() const
    {
        constexpr const char* labels[] = {
            "mac_type",  "mii_rate",       "duplex",        "gmii_master_mode", "auto_negotiate", "mode",
            "advertise", "adv_10_half",    "adv_10_full",   "adv_100_half",     "adv_100_full",   "adv_100_t4",
            "adv_pause", "adv_asym_pause", "adv_1000_half", "adv_1000_full",    "adv_port_type",  "phy_address"};
        std::string text;
        for (size_t i = 0; i < 18; ++i) {
            const std::string value = values[i] == "enable" ? "Enable" : values[i] == "disable" ? "Disable" : values[i];
            text += std::string(labels[i]) + ": " + value + " \r\n";
        }
        return text;
    }

    Words& set(size_t index, const char* word)
    {
        values[index] = word;
        return *this;
    }
};

enum { MAC_TYPE, MII_RATE, DUPLEX, GMII_MASTER_MODE, AUTO_NEGOTIATE, MODE, ADVERTISE, FIRST_CAPABILITY };
enum { ADV_PAUSE = 12, ADV_ASYM_PAUSE = 13, ADV_1000_FULL = 15, PORT_TYPE = 16, PHY_ADDRESS = 17 };

class RemoteUniMac : public ManagedOnus {
  protected:
    RemoteUniMac()
    {
        enter_onu(5);
    }

    // ONU 5 with somebody else at its port.
    void plug_in(const std::string& partner)
    {
        load(laboratory({{5, "[olt.onu.uni_partner]\n" + partner}}));
    }

    void configure(const Words& words)
    {
        EXPECT_EQ(type(words.line()), "");
        EXPECT_EQ(result, 0);
        journal();
    }

    static std::string status_lines(const std::string& link, const std::string& mac_type, const std::string& rate,
                                    const std::string& duplex, const std::string& negotiated, const std::string& mode,
                                    const std::string& pause_tx, const std::string& pause_rx,
                                    const std::string& port_type)
    {
        return "link: " + link + " \r\nmac_type: " + mac_type + " \r\nmii_rate: " + rate + " \r\nduplex: " + duplex +
               " \r\nauto_negotiate: auto-negotiation-" + negotiated + " \r\nmode: " + mode +
               " \r\npause_tx: " + pause_tx + " \r\npause_rx: " + pause_rx + " \r\nport_type: " + port_type + " \r\n";
    }

    std::string status_text()
    {
        return type("show remote uni-mac port-status");
    }
};

// --- What passes -------------------------------------------------------------------------------------------------

TEST_F(RemoteUniMac, Port)
{
    const Show show = remote_show("uni-mac port");
    expect_show(show, "enable_cpu: Enable \r\nenable_datapath: Enable \r\n",
                "REMOTE_NEPONU_uni_get_port(0, 5) = 0 -> 1, 1");
    expect_set("remote uni-mac port cpu disable datapath enable", "REMOTE_NEPONU_uni_set_port(0, 5, 0, 1) = 0");
    expect_show(show, "enable_cpu: Disable \r\nenable_datapath: Enable \r\n",
                "REMOTE_NEPONU_uni_get_port(0, 5) = 0 -> 0, 1");
    expect_set("remote uni-mac port cpu enable datapath disable", "REMOTE_NEPONU_uni_set_port(0, 5, 1, 0) = 0");
    expect_show(show, "enable_cpu: Enable \r\nenable_datapath: Disable \r\n",
                "REMOTE_NEPONU_uni_get_port(0, 5) = 0 -> 1, 0");
    expect_keyword(remote_uni_port, {"?", "enable"}, "enable_cpu", "enable_disable", 10);
    expect_keyword(remote_uni_port, {"enable", "?"}, "enable_datapath", "enable_disable", 10);
}

// --- Configuration -----------------------------------------------------------------------------------------------

TEST_F(RemoteUniMac, ConfigurationInAllForms)
{
    expect_show(remote_show("uni-mac port-configuration"), Words().listing(),
                "REMOTE_NEPONU_uni_get_port_configuration(0, 5) = 0 -> "
                "{mac_type=1,mii_rate=1,duplex=1,gmii_master_mode=1,auto_negotiate=1,mode=0,advertise=1,adv_10_half=1,"
                "adv_10_full=1,adv_100_half=1,adv_100_full=1,adv_100_t4=0,adv_pause=1,adv_asym_pause=0,adv_1000_half=0,"
                "adv_1000_full=1,adv_port_type=0,phy_address=1}");
}

TEST_F(RemoteUniMac, EachWordHasItsCode)
{
    // Places in the record, in the words' order; master and slave are the reverse of the grammar.
    const std::vector<std::vector<std::pair<const char*, int>>> codes = {
        {{"mii", 0}, {"gmii", 1}},
        {{"10m", 0}, {"100m", 1}},
        {{"half-duplex", 0}, {"full-duplex", 1}},
        {{"master", 1}, {"slave", 0}},
        {{"auto-negotiation-off", 0}, {"auto-negotiation-on", 1}},
        {{"master", 1}, {"slave", 0}},
        {{"enable", 1}, {"disable", 0}}};
    const std::vector<std::pair<const char*, int>> capability = {{"not-capable", 0}, {"capable", 1}};
    const std::vector<std::pair<const char*, int>> port_type = {{"single", 0}, {"multi", 1}};
    const char* fields[] = {"mac_type",      "mii_rate",     "duplex",      "gmii_master_mode", "auto_negotiate",
                            "mode",          "advertise",    "adv_10_half", "adv_10_full",      "adv_100_half",
                            "adv_100_full",  "adv_100_t4",   "adv_pause",   "adv_asym_pause",   "adv_1000_half",
                            "adv_1000_full", "adv_port_type"};
    for (size_t i = 0; i < 17; ++i) {
        for (const auto& [word, code] : i < codes.size() ? codes[i] : i == PORT_TYPE ? port_type : capability) {
            const Words words = Words().set(i, word);
            EXPECT_EQ(type(words.line()), "") << fields[i] << " " << word;
            EXPECT_EQ(result, 0);
            const Calls calls = journal();
            ASSERT_EQ(calls.size(), 1U);
            EXPECT_TRUE(calls[0].starts_with(std::string(SET) + "(0, 5, {mac_type=")) << calls[0];
            EXPECT_NE(calls[0].find(std::string(i == 0 ? "{" : ",") + fields[i] + "=" + std::to_string(code) + ","),
                      std::string::npos)
                << calls[0];
            EXPECT_EQ(type("show remote uni-mac port-configuration"), words.listing());
            journal();
        }
    }
}

TEST_F(RemoteUniMac, TenBitInterface)
{
    const Words words = Words().set(MAC_TYPE, "tbi").set(PHY_ADDRESS, "0xff");
    EXPECT_EQ(type(words.line()), "");
    EXPECT_EQ(journal(),
              Calls{std::string(SET) +
                    "(0, 5, {mac_type=2,mii_rate=1,duplex=1,gmii_master_mode=1,auto_negotiate=1,mode=0,advertise=1,"
                    "adv_10_half=1,adv_10_full=1,adv_100_half=1,adv_100_full=1,adv_100_t4=0,adv_pause=1,"
                    "adv_asym_pause=0,adv_1000_half=0,adv_1000_full=1,adv_port_type=0,phy_address=255}) = 0"});
    EXPECT_EQ(type("show remote uni-mac port-configuration"), words.listing());
}

TEST_F(RemoteUniMac, PhyAddressMustBeHexadecimal)
{
    EXPECT_EQ(type(Words().set(PHY_ADDRESS, "1").line()),
              "Error, phy_address parameter should be Hex format! must begin with '0x', aborting\r\n");
    EXPECT_EQ(result, -1);
    const auto address = [&](const char* word) {
        const Words words = Words().set(PHY_ADDRESS, word);
        const std::string text =
            call(remote_uni_port_configuration, std::vector<std::string>(words.values, words.values + 18));
        EXPECT_EQ(result, -1);
        return text;
    };
    EXPECT_EQ(address("0x100"),
              "Error in range of phy_address parameter for command from input min:0 max:255, aborting\r\n");
    EXPECT_EQ(address("0xzz"), "Error reading phy_address parameter for command from input, aborting\r\n");
    EXPECT_EQ(address("0X1"), "Error, phy_address parameter should be Hex format! must begin with '0x', aborting\r\n");
    EXPECT_EQ(address(""), "Error, phy_address parameter should be Hex format! must begin with '0x', aborting\r\n");
    EXPECT_EQ(journal(), Calls{});
}

TEST_F(RemoteUniMac, ConfigurationKeywords)
{
    struct Case {
        const char* name;
        const char* type_name;
        size_t room;
    };
    std::vector<Case> cases = {{"mac_type", "mac_type", 10},
                               {"mii_rate", "mii_rate", 10},
                               {"duplex", "duplex", 20},
                               {"gmii_master_mode", "master_slave", 10},
                               {"auto_negotiate", "auto_negotiation", 30},
                               {"mode", "master_slave", 10},
                               {"advertise", "enable_disable", 10}};
    for (const char* name : {"adv_10_half", "adv_10_full", "adv_100_half", "adv_100_full", "adv_100_t4", "adv_pause",
                             "adv_asym_pause", "adv_1000_half", "adv_1000_full"})
        cases.push_back({name, "advertise", 20});
    cases.push_back({"adv_port_type", "advertise_port_type", 10});
    ASSERT_EQ(cases.size(), 17U);
    for (size_t i = 0; i < cases.size(); ++i) {
        const Words words = Words().set(i, "?");
        expect_keyword(remote_uni_port_configuration, std::vector<std::string>(words.values, words.values + 18),
                       cases[i].name, cases[i].type_name, cases[i].room);
    }
}

TEST_F(RemoteUniMac, ConfigurationThatCouldNeverHaveALink)
{
    Words nothing;
    for (size_t i = FIRST_CAPABILITY; i < PORT_TYPE; ++i)
        nothing.set(i, "not-capable");
    expect_refusal(nothing.line(), "bad configuration", -13008);
    Words gigabit_alone = nothing;
    gigabit_alone.set(ADV_1000_FULL, "capable");
    configure(gigabit_alone);
    expect_refusal(gigabit_alone.set(MAC_TYPE, "mii").line(), "bad configuration", -13008);
    configure(nothing.set(ADVERTISE, "disable")); // all that the port has
    expect_refusal(
        Words().set(MAC_TYPE, "tbi").set(AUTO_NEGOTIATE, "auto-negotiation-off").set(DUPLEX, "half-duplex").line(),
        "bad configuration", -13008);
}

// --- Status ------------------------------------------------------------------------------------------------------

TEST_F(RemoteUniMac, StatusInAllForms)
{
    expect_show(remote_show("uni-mac port-status"),
                status_lines("up", "gmii", "100m", "full-duplex", "on", "slave", "Enable", "Enable", "single"),
                "REMOTE_NEPONU_uni_get_port_status(0, 5) = 0 -> {link=1,mac_type=1,mii_rate=1,duplex=1,"
                "auto_negotiate=1,mode=0,pause_tx=1,pause_rx=1,port_type=0}");
}

TEST_F(RemoteUniMac, BestOfWhatBothHave)
{
    configure(Words().set(ADV_1000_FULL, "not-capable"));
    EXPECT_EQ(status_text(),
              status_lines("up", "mii", "100m", "full-duplex", "on", "slave", "Enable", "Enable", "single"));
    plug_in("speed = \"10\"\nfull_duplex = false\n");
    EXPECT_EQ(status_text(),
              status_lines("up", "mii", "10m", "half-duplex", "on", "slave", "Disable", "Disable", "single"));
    Words only_gigabit;
    for (size_t i = FIRST_CAPABILITY; i < ADV_PAUSE; ++i)
        only_gigabit.set(i, "not-capable");
    configure(only_gigabit);
    EXPECT_EQ(status_text(),
              status_lines("down", "gmii", "100m", "full-duplex", "off", "slave", "Disable", "Disable", "single"));
}

TEST_F(RemoteUniMac, PartnerThatDoesNotNegotiateIsTakenForHalfDuplex)
{
    plug_in("negotiates = false\nspeed = \"100\"\n");
    EXPECT_EQ(status_text(),
              status_lines("up", "mii", "100m", "half-duplex", "off", "slave", "Disable", "Disable", "single"));
    const Words fixed = Words().set(MAC_TYPE, "mii").set(AUTO_NEGOTIATE, "auto-negotiation-off");
    configure(fixed);
    EXPECT_EQ(status_text(),
              status_lines("up", "mii", "100m", "full-duplex", "off", "slave", "Disable", "Disable", "single"));
    configure(Words(fixed).set(MII_RATE, "10m"));
    EXPECT_EQ(status_text(),
              status_lines("down", "mii", "10m", "full-duplex", "off", "slave", "Disable", "Disable", "single"));
    plug_in("negotiates = false\n"); // 1000 Mbit/s need both ends
    EXPECT_EQ(status_text(),
              status_lines("down", "gmii", "100m", "full-duplex", "off", "slave", "Disable", "Disable", "single"));
}

TEST_F(RemoteUniMac, FixedPortKeepsItsDuplexAgainstAPartnerThatNegotiates)
{
    configure(Words().set(MAC_TYPE, "mii").set(AUTO_NEGOTIATE, "auto-negotiation-off").set(MII_RATE, "10m"));
    EXPECT_EQ(status_text(),
              status_lines("up", "mii", "10m", "full-duplex", "off", "slave", "Disable", "Disable", "single"));
}

TEST_F(RemoteUniMac, PauseByTheResolutionOfTheStandard)
{
    struct Case {
        const char* partner;
        const char* pause;
        const char* asymmetric;
        const char* tx;
        const char* rx;
    };
    const Case cases[] = {
        {"pause = true\n", "capable", "not-capable", "Enable", "Enable"},
        {"pause = true\n", "not-capable", "capable", "Disable", "Disable"},
        {"pause = true\nasymmetric_pause = true\n", "not-capable", "capable", "Enable", "Disable"},
        {"pause = false\nasymmetric_pause = true\n", "capable", "capable", "Disable", "Enable"},
        {"pause = false\nasymmetric_pause = true\n", "not-capable", "capable", "Disable", "Disable"},
        {"pause = false\n", "capable", "capable", "Disable", "Disable"},
        {"pause = true\nasymmetric_pause = true\n", "not-capable", "not-capable", "Disable", "Disable"},
    };
    for (const Case& test : cases) {
        plug_in(test.partner);
        configure(Words().set(ADV_PAUSE, test.pause).set(ADV_ASYM_PAUSE, test.asymmetric));
        EXPECT_EQ(status_text(),
                  status_lines("up", "gmii", "100m", "full-duplex", "on", "slave", test.tx, test.rx, "single"))
            << test.partner << test.pause << " " << test.asymmetric;
    }
}

TEST_F(RemoteUniMac, EndWithSeveralPortsGivesTheClock)
{
    configure(Words().set(MODE, "slave").set(PORT_TYPE, "multi"));
    EXPECT_EQ(status_text(),
              status_lines("up", "gmii", "100m", "full-duplex", "on", "master", "Enable", "Enable", "single"));
    plug_in("multi_port = true\n");
    configure(Words().set(MODE, "master"));
    EXPECT_EQ(status_text(),
              status_lines("up", "gmii", "100m", "full-duplex", "on", "slave", "Enable", "Enable", "multi"));
    configure(Words().set(MODE, "master").set(PORT_TYPE, "multi")); // equals: as configured
    EXPECT_EQ(status_text(),
              status_lines("up", "gmii", "100m", "full-duplex", "on", "master", "Enable", "Enable", "multi"));
}

TEST_F(RemoteUniMac, NoLinkWithoutACableOrWithALoop)
{
    const std::string down =
        status_lines("down", "gmii", "100m", "full-duplex", "off", "slave", "Disable", "Disable", "single");
    ASSERT_TRUE(sdk_sim::make_loop(0, 5, 1));
    type("remote rstp-ldp mode enable");
    EXPECT_NE(status_text(), down);
    sdk_sim::advance_clock(2000);
    EXPECT_EQ(status_text(), down);
    type("remote rstp-ldp resolve-loop port-number 0x1");
    EXPECT_NE(status_text(), down);
    plug_in("connected = false\n");
    EXPECT_EQ(status_text(), down);
}

// --- Extended configuration --------------------------------------------------------------------------------------

TEST_F(RemoteUniMac, ExtendedConfigurationInAllForms)
{
    const std::pair<const char*, std::string> items[] = {
        {"loopback", "4"}, {"power-down", "1"}, {"mii-mode", "4"}, {"power-save-en", "1"}};
    int code = 0;
    for (const auto& [item, value] : items) {
        const Show show = remote_show("uni-mac extended-configuration", std::string(" configuration ") + item);
        const std::string arguments = "(0, 5, " + std::to_string(code++);
        const std::string get = "REMOTE_NEPONU_uni_get_extended_configuration" + arguments + ") = 0 -> ";
        expect_show(show, "value: 0 \r\n", get + "0");
        const std::string set = std::string("remote uni-mac extended-configuration configuration ") + item + " value ";
        expect_set(set + value, "REMOTE_NEPONU_uni_set_extended_configuration" + arguments + ", " + value + ") = 0");
        expect_show(show, "value: " + value + " \r\n", get + value);
        if (value == "1") expect_refusal(set + "2", "parameter error", -4);
        expect_set(set + "0", "REMOTE_NEPONU_uni_set_extended_configuration" + arguments + ", 0) = 0");
    }
}

TEST_F(RemoteUniMac, LoopbackAndPowerDownShowInTheStatus)
{
    const std::string set = "remote uni-mac extended-configuration configuration ";
    plug_in("connected = false\n");
    type(set + "loopback value 1"); // the port is its own partner
    EXPECT_EQ(status_text(),
              status_lines("up", "gmii", "100m", "full-duplex", "off", "slave", "Disable", "Disable", "single"));
    type(set + "loopback value 3"); // of what nobody sends
    EXPECT_EQ(status_text(),
              status_lines("down", "gmii", "100m", "full-duplex", "off", "slave", "Disable", "Disable", "single"));
    type(set + "loopback value 2");
    expect_refusal(set + "power-down value 1", "bad configuration", -13008);
    type(set + "loopback value 0");
    type(set + "power-down value 1");
    expect_refusal(set + "loopback value 2", "bad configuration", -13008);
    type(set + "loopback value 1");
    EXPECT_EQ(status_text(),
              status_lines("down", "gmii", "100m", "full-duplex", "off", "slave", "Disable", "Disable", "single"));
}

TEST_F(RemoteUniMac, ExtendedConfigurationRefusals)
{
    expect_keyword(remote_uni_extended_configuration, {"?", "1"}, "configuration", "uni_ext_config_type", 20);
    expect_keyword(show_remote_uni_extended_configuration, {"?"}, "configuration", "uni_ext_config_type", 20);
    expect_keyword(show_remote_uni_extended_configuration, {"0", "5", "?"}, "configuration", "uni_ext_config_type", 20);
    EXPECT_EQ(call(remote_uni_extended_configuration, {"loopback", "5"}),
              "Error in range of value parameter for command from input min:0 max:4, aborting\r\n");
    EXPECT_EQ(result, -1);
    EXPECT_EQ(journal(), Calls{});
}

TEST_F(RemoteUniMac, FailedCalls)
{
    const std::pair<std::string, const char*> commands[] = {
        {"show remote uni-mac port", "REMOTE_NEPONU_uni_get_port"},
        {"remote uni-mac port cpu enable datapath enable", "REMOTE_NEPONU_uni_set_port"},
        {"show remote uni-mac port-configuration", "REMOTE_NEPONU_uni_get_port_configuration"},
        {Words().line(), SET},
        {"show remote uni-mac port-status", "REMOTE_NEPONU_uni_get_port_status"},
        {"show remote uni-mac extended-configuration configuration loopback",
         "REMOTE_NEPONU_uni_get_extended_configuration"},
        {"remote uni-mac extended-configuration configuration loopback value 0",
         "REMOTE_NEPONU_uni_set_extended_configuration"}};
    for (const auto& [line, operation] : commands)
        expect_remote_failures(line, operation);
}

} // namespace
