// SPDX-License-Identifier: Apache-2.0
#include "links_fixture.h"
#include "olt/llid.h"

namespace {

class Encryption : public Links {
  protected:
    static std::string changed(const char* direction)
    {
        return std::string("encryption-changed: olt 0, llid 5, direction ") + direction + " \r\n";
    }
    static std::string updated(const char* index)
    {
        return std::string("encryption-key-updated: olt 0, llid 5, key-index ") + index + " \r\n";
    }
};

TEST_F(Encryption, StartAndStop)
{
    enter_llid(5);
    EventLines events;
    journal();
    EXPECT_EQ(type("encryption start downlink"), "");
    EXPECT_EQ(result, 0);
    EXPECT_EQ(journal(), Calls{"NEP_start_encryption(0, 5, 1) = 0"});
    EXPECT_EQ(events.after(), changed("downlink") + updated("0"));
    EXPECT_EQ(type("encryption start uplink-downlink"), "");
    EXPECT_EQ(journal(), Calls{"NEP_start_encryption(0, 5, 2) = 0"});
    EXPECT_EQ(events.after(), changed("uplink-downlink")); // the key goes on
    EXPECT_EQ(type("encryption stop"), "");
    EXPECT_EQ(result, 0);
    EXPECT_EQ(journal(), Calls{"NEP_stop_encryption(0, 5) = 0"});
    EXPECT_EQ(events.after(), changed("off"));
    EXPECT_EQ(type("encryption stop"), WRONG_STATE);
    EXPECT_EQ(result, -1);
}

TEST_F(Encryption, Keys)
{
    enter_llid(5);
    EXPECT_EQ(type("show encryption-key"), WRONG_STATE);
    EXPECT_EQ(result, -1);
    EXPECT_EQ(type("encryption set-key 00112233445566778899aabbccddeeff"), WRONG_STATE);
    EXPECT_EQ(result, -1);
    EventLines events;
    type("encryption start downlink");
    EXPECT_EQ(events.after(), changed("downlink") + updated("0"));
    journal();
    EXPECT_EQ(type("encryption set-key 00112233445566778899aabbCCDDEEFF"), "");
    EXPECT_EQ(result, 0);
    EXPECT_EQ(journal(), Calls{"NEP_update_encryption_key(0, 5, 00112233445566778899aabbccddeeff) = 0"});
    EXPECT_EQ(type("show encryption-key"), "OLT_id: 0 \r\nencryption key: 00112233445566778899aabbccddeeff \r\n");
    EXPECT_EQ(result, 0);
    EXPECT_EQ(journal(), Calls{"NEP_get_encryption_key(0, 5) = 0 -> 00112233445566778899aabbccddeeff"});
    // What follows the 32nd digit is not looked at.
    EXPECT_EQ(type("encryption set-key ffffffffffffffffffffffffffffffff!!"), "");
    EXPECT_EQ(events.after(), updated("1") + updated("0"));
}

TEST_F(Encryption, KeysThatAreNone)
{
    enter_llid(5);
    for (const char* key : {"0", "00112233445566778899aabbccddeef", "0x112233445566778899aabbccddeeff",
                            "g0112233445566778899aabbccddeeff"}) {
        EXPECT_EQ(type(std::string("encryption set-key ") + key),
                  "Error reading ENCRYPTION_KEY parameter for command from input, aborting\r\n");
        EXPECT_EQ(result, -1);
    }
    EXPECT_EQ(call(update_encryption, {""}),
              "Error reading ENCRYPTION_KEY parameter for command from input, aborting\r\n");
    EXPECT_EQ(call(start_encryption, {"uplink"}),
              "Error reading start parameter (of the type encryption_direction), aborting\r\n");
    EXPECT_EQ(result, -1);
    EXPECT_EQ(journal(), Calls{});
}

TEST_F(Encryption, FailuresAreReported)
{
    const std::pair<const char*, const char*> cases[] = {
        {"encryption start downlink", "NEP_start_encryption"},
        {"encryption set-key 00112233445566778899aabbccddeeff", "NEP_update_encryption_key"},
        {"encryption stop", "NEP_stop_encryption"},
        {"show encryption-key", "NEP_get_encryption_key"}};
    for (const auto& [line, operation] : cases)
        expect_link_failures(line, operation);
}

} // namespace
