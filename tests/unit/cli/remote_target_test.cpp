// SPDX-License-Identifier: Apache-2.0
// How every command of remote management names its ONU.
#include <cstring>

#include "REMOTE_MANAGEMENT_CLI/fec.h"
#include "REMOTE_MANAGEMENT_CLI/rstp_ldp.h"
#include "managed_onus_fixture.h"

namespace {

class RemoteTarget : public ManagedOnus {
  protected:
    // The address form, and what it returns.
    void expect(const std::string& olt, const std::string& onu, const std::string& text, int returned,
                const Calls& calls = {})
    {
        EXPECT_EQ(call(show_remote_rstp_ldp_mode, {olt, onu}), text) << olt << " " << onu;
        EXPECT_EQ(result, returned) << olt << " " << onu;
        EXPECT_EQ(journal(), calls) << olt << " " << onu;
    }

    static constexpr const char* MODE = "mode: Disable \r\n";
    static constexpr const char* GET = "REMOTE_NEPONU_rstp_ldp_get_mode(0, 5) = 0 -> 0";
};

TEST_F(RemoteTarget, OltOutOfBoundsEndsInABareLineFeed)
{
    enter(CONFIG_NODE);
    for (const int kind : {0, 1}) {
        session->type = kind;
        EXPECT_EQ(type("show onu remote mac fec-configuration 16 1"),
                  "Error, OLT id (16) is out of bounds. OLT range: 0 - 15\n");
        EXPECT_EQ(result, -4);
        EXPECT_EQ(type("show onu remote mac fec-configuration -1 1"),
                  "Error, OLT id (-1) is out of bounds. OLT range: 0 - 15\n");
        EXPECT_EQ(result, -4);
    }
    session->type = VTY_TYPE_TERMINAL;
    EXPECT_EQ(journal(), Calls{});
}

TEST_F(RemoteTarget, Olt)
{
    expect("0x0", "5", MODE, 0, {GET});
    expect("15", "5", failure("OLT not exist", -13013), 0, {"REMOTE_NEPONU_rstp_ldp_get_mode(15, 5) = -13013"});
    expect("32767", "5", "Error, OLT id (32767) is out of bounds. OLT range: 0 - 15\n", -4);
    expect("32768", "5", "Error in range of OLT_id parameter for command from input min:-32767 max:32767, aborting\r\n",
           -1);
    expect("-32768", "5",
           "Error in range of OLT_id parameter for command from input min:-32767 max:32767, aborting\r\n", -1);
    expect("0x", "5", "Error reading OLT_id parameter for command from input, aborting\r\n", -1);
    expect("1x", "5", "Error reading OLT_id parameter for command from input, aborting\r\n", -1);
}

TEST_F(RemoteTarget, FourCharactersAreAnIndexAndFiveAnAddress)
{
    expect("0", "0005", MODE, 0, {GET});
    expect("0", "0x05", MODE, 0, {GET});
    expect("0", "1234", failure("ONU not available", -13015), 0, {"REMOTE_NEPONU_rstp_ldp_get_mode(0, 1234) = -13015"});
    expect("0", "-1", failure("ONU not available", -13015), 0, {"REMOTE_NEPONU_rstp_ldp_get_mode(0, -1) = -13015"});
    expect("0", "5x", "Error reading onu_index parameter for command from input, aborting\r\n", -1);
    expect("0", "12345", "Error reading MAC address parameter from the MAC address string, aborting\r\n", 0);
    expect("0", "00005", "Error reading MAC address parameter from the MAC address string, aborting\r\n", 0);
}

TEST_F(RemoteTarget, CodesHaveTheWordsOfRemoteManagement)
{
    // -17003 is a code of another family.
    const std::pair<int16_t, const char*> codes[] = {
        {-13014, "query failed"}, {-17003, "Error code was not found!!!"}, {1, "Error code was not found!!!"}};
    for (const auto& [code, words] : codes) {
        inject("REMOTE_NEPONU_rstp_ldp_get_mode", code);
        expect("0", "5", failure(words, code), 0, {"REMOTE_NEPONU_rstp_ldp_get_mode(0, 5) = " + std::to_string(code)});
    }
}

TEST_F(RemoteTarget, AddressOfAtMostSeventeenCharacters)
{
    expect("0", "02-00-00-00-00-05", MODE, 0, {"Mac_address_exist(0, 02-00-00-00-00-05) = 1 -> 5", GET});
    expect("0", "2-0-0-0-0-5", MODE, 0, {"Mac_address_exist(0, 02-00-00-00-00-05) = 1 -> 5", GET});
    expect("0", "02-00-00-00-00-005", "Error reading mac_address has wrong length, aborting\r\n", -1);
    expect("0", "02-00-00-00-00-0g", "Error reading MAC address parameter from the MAC address string, aborting\r\n",
           0);
    expect("0", "02-00-00-00-00-77", "There is no 02-00-00-00-00-77 mac address in the system\r\n", 0,
           {"Mac_address_exist(0, 02-00-00-00-00-77) = 0"});
    expect("0", "          ", "Error reading mac_address parameter for command from input, aborting\r\n", -1);
}

TEST_F(RemoteTarget, BroadcastInLowerCaseNeedsNoLookUp)
{
    expect("0", "ff-ff-ff-ff-ff-ff", failure("ONU not available", -13015), 0,
           {"REMOTE_NEPONU_rstp_ldp_get_mode(0, 4095) = -13015"});
    expect("0", "FF-FF-FF-FF-FF-FF", "There is no FF-FF-FF-FF-FF-FF mac address in the system\r\n", 0,
           {"Mac_address_exist(0, ff-ff-ff-ff-ff-ff) = 0"});
}

TEST_F(RemoteTarget, SessionEnteredByAddress)
{
    // Neither a length test nor the short cut to the broadcast ONU.
    struct Case {
        const char* mac;
        std::string text;
        Calls calls;
    };
    const std::string set = "REMOTE_NEPONU_rstp_ldp_set_mode(0, 5, 0) = 0";
    const Case cases[] = {
        {"02-00-00-00-00-05", "", {"Mac_address_exist(0, 02-00-00-00-00-05) = 1 -> 5", set}},
        {"0002-0000-00-00-00-0005", "", {"Mac_address_exist(0, 02-00-00-00-00-05) = 1 -> 5", set}},
        {"ff-ff-ff-ff-ff-ff",
         "There is no ff-ff-ff-ff-ff-ff mac address in the system\r\n",
         {"Mac_address_exist(0, ff-ff-ff-ff-ff-ff) = 0"}},
        {"02-00", "Error reading MAC address parameter from the MAC address string, aborting\r\n", {}},
        {"5", "Error reading MAC address parameter from the MAC address string, aborting\r\n", {}}};
    for (const Case& test : cases) {
        enter_onu_by_mac(test.mac);
        EXPECT_EQ(type("remote rstp-ldp mode disable"), test.text) << test.mac;
        EXPECT_EQ(result, 0);
        EXPECT_EQ(journal(), test.calls);
        EXPECT_STREQ(session->onu_mac, test.mac); // the parser gets a copy
    }
}

TEST_F(RemoteTarget, AnyOtherValueThanOneMeansByAddress)
{
    enter_onu_by_mac("02-00-00-00-00-05");
    session->onu_by_index = 2;
    session->onu_id = 254;
    EXPECT_EQ(type("show remote rstp-ldp mode"), MODE);
    EXPECT_EQ(journal(), (Calls{"Mac_address_exist(0, 02-00-00-00-00-05) = 1 -> 5", GET}));
}

TEST_F(RemoteTarget, TargetIsReadBeforeOwnWords)
{
    enter_onu_by_mac("02-00-00-00-00-77");
    EXPECT_EQ(call(remote_rstp_ldp_mode, {"neither"}), "There is no 02-00-00-00-00-77 mac address in the system\r\n");
    EXPECT_EQ(result, 0);
}

} // namespace
