// SPDX-License-Identifier: Apache-2.0
#include "olt/encryption_direction.h"

#include "links_fixture.h"

namespace {

class EncryptionDirection : public Links {
  protected:
    std::string shown(const std::string& llid)
    {
        return type("show olt 0 llid " + llid + " encryption-direction");
    }
};

std::string answer(const char* direction)
{
    return std::string("OLT_id: 0 \r\nencryption direction: ") + direction + " \r\n";
}

TEST_F(EncryptionDirection, OfEachLink)
{
    for (const std::string llid : {"5", "0xfe"}) {
        const std::string number = llid == "5" ? "5" : "254";
        EXPECT_EQ(shown(llid), answer("none"));
        EXPECT_EQ(type("set olt 0 llid " + llid + " encryption-direction downlink"), "");
        EXPECT_EQ(result, 0);
        EXPECT_EQ(shown(llid), answer("downlink"));
        EXPECT_EQ(type("set olt 0 llid " + llid + " encryption-direction uplink-downlink"), "");
        EXPECT_EQ(shown(llid), answer("uplink-downlink"));
        EXPECT_EQ(type("no olt 0 llid " + llid + " encryption-direction"), "");
        EXPECT_EQ(result, 0);
        EXPECT_EQ(shown(llid), answer("none"));
        EXPECT_EQ(result, 0);
        EXPECT_EQ(journal(), (Calls{"NEP_get_encryption_direction(0, " + number + ") = 0 -> 0",
                                    "NEP_set_encryption_direction(0, " + number + ", 1) = 0",
                                    "NEP_get_encryption_direction(0, " + number + ") = 0 -> 1",
                                    "NEP_set_encryption_direction(0, " + number + ", 2) = 0",
                                    "NEP_get_encryption_direction(0, " + number + ") = 0 -> 2",
                                    "NEP_set_encryption_direction(0, " + number + ", 0) = 0",
                                    "NEP_get_encryption_direction(0, " + number + ") = 0 -> 0"}));
    }
}

TEST_F(EncryptionDirection, ChangesAreTold)
{
    EventLines events;
    type("no olt 0 llid 5 encryption-direction");
    EXPECT_EQ(events.after(), "");
    type("set olt 0 llid 5 encryption-direction downlink");
    const std::string on = events.after();
    EXPECT_EQ(on.find("encryption-changed: olt 0, llid 5, direction "), 0u) << on;
    type("set olt 0 llid 5 encryption-direction downlink");
    EXPECT_EQ(events.after(), "");
    type("no olt 0 llid 5 encryption-direction");
    const std::string off = events.after();
    EXPECT_EQ(off.find("encryption-changed: olt 0, llid 5, direction "), 0u) << off;
    EXPECT_NE(on, off);
}

TEST_F(EncryptionDirection, PacketNumbersGrow)
{
    const std::string olt = "OLT_id: 0 \r\n";
    enter(OLT_NODE);
    EXPECT_EQ(type("show encryption-pn-db"), olt);
    enter(CONFIG_NODE);
    type("set olt 0 llid 254 encryption-direction uplink-downlink");
    sdk_sim::advance_clock(100);
    type("set olt 0 llid 5 encryption-direction downlink");
    sdk_sim::advance_clock(1000);
    journal();
    const std::string listing = olt + "LLID 5: downlink 10000 uplink 0 \r\n"
                                      "LLID 254: downlink 11000 uplink 2200 \r\n";
    EXPECT_EQ(type("show olt 0 encryption-pn-db"), listing);
    EXPECT_EQ(result, 0);
    EXPECT_EQ(journal(), Calls{"NEP_get_encryption_pn_db(0) = 0 -> [{llid=5,downlink=10000,uplink=0},"
                               "{llid=254,downlink=11000,uplink=2200}]"});
    enter(OLT_NODE);
    EXPECT_EQ(type("show encryption-pn-db"), listing);
    sdk_sim::advance_clock(1000000000000); // numbers of 64 bits
    EXPECT_EQ(type("show encryption-pn-db"), olt + "LLID 5: downlink 10000000010000 uplink 0 \r\n"
                                                   "LLID 254: downlink 10000000011000 uplink 2000000002200 \r\n");
    enter(CONFIG_NODE);
    type("no olt 0 llid 254 encryption-direction");
    type("set olt 0 llid 5 encryption-direction uplink-downlink"); // begins anew
    EXPECT_EQ(type("show olt 0 encryption-pn-db"), olt + "LLID 5: downlink 0 uplink 0 \r\n");
}

TEST_F(EncryptionDirection, EveryLinkOfAFullOlt)
{
    load("[clock]\nspeed = 0\n[[olt]]\nid = 0\nmac = \"00-0a-c4-00-00-01\"\n"
         "[[olt.onu]]\nfirst = 0\ncount = 255\nmac = \"02-00-00-00-01-00\"\n");
    std::string expected = "OLT_id: 0 \r\n";
    for (int llid = 0; llid < ENCRYPTION_PN_DB_LIMIT; ++llid) {
        const std::string index = std::to_string(llid);
        EXPECT_EQ(type("set olt 0 llid " + index + " encryption-direction downlink"), "");
        expected += "LLID " + index + ": downlink 0 uplink 0 \r\n";
    }
    EXPECT_EQ(type("show olt 0 encryption-pn-db"), expected);
}

TEST_F(EncryptionDirection, LinksThatAreNotThere)
{
    for (const char* llid : {"4", "6", "8", "255", "-1"}) {
        for (const char* line : {"set olt 0 llid # encryption-direction downlink",
                                 "no olt 0 llid # encryption-direction", "show olt 0 llid # encryption-direction"}) {
            std::string text = line;
            text.replace(text.find('#'), 1, llid);
            EXPECT_EQ(type(text), NO_ONU) << text;
            EXPECT_EQ(result, -1007);
        }
    }
}

TEST_F(EncryptionDirection, FailuresAndAbsentOlts)
{
    const std::vector<std::pair<const char*, const char*>> cases = {
        {"set olt # llid 5 encryption-direction downlink", "NEP_set_encryption_direction"},
        {"no olt # llid 5 encryption-direction", "NEP_set_encryption_direction"},
        {"show olt # llid 5 encryption-direction", "NEP_get_encryption_direction"},
        {"show olt # encryption-pn-db", "NEP_get_encryption_pn_db"},
    };
    for (const auto& [words, operation] : cases) {
        const auto with_olt = [text = std::string(words)](const char* olt) {
            std::string line = text;
            return line.replace(line.find('#'), 1, olt);
        };
        inject(operation, -5);
        EXPECT_EQ(type(with_olt("0")), HARDWARE) << words;
        EXPECT_EQ(result, -5);
        EXPECT_EQ(type(with_olt("1")), NO_OLT) << words;
        EXPECT_EQ(result, -1003);
        journal();
        EXPECT_EQ(type(with_olt("x")), "Error reading OLT_id parameter for command from input, aborting\r\n");
        EXPECT_EQ(result, -1);
        EXPECT_EQ(journal(), Calls{});
    }
    enter(OLT_NODE, 1);
    EXPECT_EQ(type("show encryption-pn-db"), NO_OLT);
    EXPECT_EQ(result, -1003);
}

TEST_F(EncryptionDirection, RefusedWords)
{
    for (const char* word : {"", "none", "uplink", "a-word-of-more-than-ten-characters"}) {
        EXPECT_EQ(call(set_olt_encryption_direction, {"0", "5", word}),
                  "Error reading encryption_direction parameter (of the type encryption_direction), aborting\r\n");
        EXPECT_EQ(result, -1);
    }
    for (const char* line : {"set olt 0 llid 5x encryption-direction downlink", "no olt 0 llid 5x encryption-direction",
                             "show olt 0 llid 5x encryption-direction"}) {
        EXPECT_EQ(type(line), "Error reading LLID_INDEX parameter for command from input, aborting\r\n") << line;
        EXPECT_EQ(result, -1);
    }
    EXPECT_EQ(journal(), Calls{});
}

} // namespace
