// SPDX-License-Identifier: Apache-2.0
#include "olt/dot1x.h"

#include "links_fixture.h"

namespace {

class Dot1x : public Links {
  protected:
    Dot1x()
    {
        enter(OLT_NODE);
    }

    static std::string line(const std::string& key, const std::vector<std::string>& numbers)
    {
        constexpr const char* keywords[] = {"quite-period", "tx-period",        "supplicant",
                                            "server",       "reauthentication", "request"};
        std::string text = "802-1x configuration key " + key;
        for (size_t i = 0; i < numbers.size(); ++i)
            text += std::string(" ") + keywords[i] + " " + numbers[i];
        return text;
    }
};

const std::string LONGEST_KEY(31, 'k');

TEST_F(Dot1x, Configuration)
{
    EXPECT_EQ(type(line("s3cret", {"60", "30", "0x1E", "30", "2", "10"})), "");
    EXPECT_EQ(result, 0);
    EXPECT_EQ(journal(), Calls{"NEP_set_802_1x_configuration(0, {enabled=1,shared_secret=\"s3cret\",quiet_period=60,"
                               "tx_period=30,supplicant_timeout=30,server_timeout=30,max_reauthentications=2,"
                               "max_requests=10}) = 0"});
    EXPECT_EQ(type(line(LONGEST_KEY, {"0", "65535", "65535", "65535", "65535", "1"})), "");
    EXPECT_EQ(journal(), Calls{"NEP_set_802_1x_configuration(0, {enabled=1,shared_secret=\"" + LONGEST_KEY +
                               "\",quiet_period=0,tx_period=65535,supplicant_timeout=65535,server_timeout=65535,"
                               "max_reauthentications=65535,max_requests=1}) = 0"});
    EXPECT_EQ(type("no 802-1x configuration"), "");
    EXPECT_EQ(result, 0);
    EXPECT_EQ(journal(), Calls{"NEP_set_802_1x_configuration(0, {enabled=0,shared_secret=\"\",quiet_period=0,"
                               "tx_period=0,supplicant_timeout=0,server_timeout=0,max_reauthentications=0,"
                               "max_requests=0}) = 0"});
}

TEST_F(Dot1x, Keys)
{
    EXPECT_EQ(type(line(LONGEST_KEY + "k", {"60", "30", "30", "30", "2", "2"})),
              "Error reading SHARED_SECRET_KEY parameter, internal buffer is too short, aborting!\r\n");
    EXPECT_EQ(result, -1);
    EXPECT_EQ(journal(), Calls{});
    // An empty key cannot be typed; the device refuses it.
    EXPECT_EQ(call(config_802_1x, {"", "60", "30", "30", "30", "2", "2"}), BAD_PARAMETER);
}

TEST_F(Dot1x, Numbers)
{
    constexpr const char* names[] = {"QUITE_PERIOD",         "TX_PERIOD", "SUPPLICANT_TO", "SERVER_TO",
                                     "MAX_REAUTHENTICATION", "request"};
    for (size_t i = 0; i < std::size(names); ++i) {
        const std::string name = names[i];
        const bool is_request = i + 1 == std::size(names);
        const std::string range = "Error in range of " + name +
                                  " parameter for command from input min:" + (is_request ? "1 max:10" : "0 max:65535") +
                                  ", aborting\r\n";
        const std::pair<const char*, std::string> cases[] = {
            {"x", "Error reading " + name + " parameter for command from input, aborting\r\n"},
            {"1x", "Error reading " + name + " parameter for command from input, aborting\r\n"},
            {"-1", "Error reading negative value of " + name + " parameter from input, aborting\r\n"},
            {is_request ? "11" : "65536", range},
            {"0x10000", range},
        };
        for (const auto& [word, message] : cases) {
            std::vector<std::string> words = {"key", "60", "30", "30", "30", "2", "2"};
            words[i + 1] = word;
            EXPECT_EQ(call(config_802_1x, words), message) << word;
            EXPECT_EQ(result, -1);
        }
    }
    EXPECT_EQ(journal(), Calls{});
    // No timer but the quiet period can be 0: the device's own rule.
    for (size_t i = 1; i < 5; ++i) {
        std::vector<std::string> numbers = {"60", "30", "30", "30", "2", "2"};
        numbers[i] = "0";
        EXPECT_EQ(type(line("key", numbers)), BAD_PARAMETER) << names[i];
        EXPECT_EQ(result, -4);
    }
}

TEST_F(Dot1x, Failures)
{
    for (const std::string& text :
         {line("key", {"60", "30", "30", "30", "2", "2"}), std::string("no 802-1x configuration")}) {
        enter(OLT_NODE);
        inject("NEP_set_802_1x_configuration", -5);
        EXPECT_EQ(type(text), HARDWARE);
        EXPECT_EQ(result, -5);
        enter(OLT_NODE, 1);
        EXPECT_EQ(type(text), NO_OLT);
        EXPECT_EQ(result, -1003);
    }
}

} // namespace
