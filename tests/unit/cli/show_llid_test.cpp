// SPDX-License-Identifier: Apache-2.0
#include "links_fixture.h"
#include "olt/onu.h"

namespace {

struct Show {
    const char* word;      // of the forms that bring their target
    const char* node_form; // of the link's own context
    const char* label;
    const char* operation;
};

constexpr Show shows[] = {
    {"mode", "show mode", "mode", "NEP_get_onu_mode"},
    {"authorization", "show authorize", "authorization", "NEP_get_llid_parameters"},
    {"encryption", "show encryption", "encryption", "NEP_get_llid_parameters"},
    {"encryption", "show olt-encryption", "encryption", "NEP_get_llid_parameters"},
};

class ShowLlid : public Links {
  protected:
    static std::string answer(const std::string& label, const std::string& value)
    {
        return "OLT_id: 0 \r\n" + label + ": " + value + " \r\n";
    }
};

TEST_F(ShowLlid, Modes)
{
    const std::pair<int, const char*> cases[] = {
        {5, "registered"}, {8, "discovered"}, {9, "unauthorized"}, {6, "unregistered"}, {0, "unregistered"}};
    for (const auto& [llid, word] : cases)
        EXPECT_EQ(type("show llid mode 0 " + std::to_string(llid)), answer("mode", word));
    EXPECT_EQ(result, 0);
    EXPECT_EQ(journal().front(), "NEP_get_onu_mode(0, 5) = 0 -> 201");
    for (const char* llid : {"-1", "255", "4095"}) {
        EXPECT_EQ(type(std::string("show llid mode 0 ") + llid), BAD_PARAMETER);
        EXPECT_EQ(result, -4);
    }
    inject("NEP_get_onu_mode", 0); // a mode 0 that is in no table
    EXPECT_EQ(type("show llid mode 0 5"), answer("mode", "Invalid value"));
}

TEST_F(ShowLlid, WhatWasDoneIsShown)
{
    enter_llid(5);
    EXPECT_EQ(type("show authorize"), answer("authorization", "authorized"));
    EXPECT_EQ(journal(),
              Calls{"NEP_get_llid_parameters(0, 5) = 0 -> {mode=201,rate=0,authorized=1,encryption=0,fec=0,rtt=1000,"
                    "mac=02-00-00-00-00-05}"});
    EXPECT_EQ(type("show encryption"), answer("encryption", "off"));
    NEP_authorize_onu(0, 5, 0);
    EXPECT_EQ(type("show authorize"), answer("authorization", "unauthorized"));
    EXPECT_EQ(type("show mode"), answer("mode", "unauthorized"));
    NEP_start_encryption(0, 5, LLID_ENCRYPTION_DOWNLINK);
    EXPECT_EQ(type("show encryption"), answer("encryption", "downlink"));
    EXPECT_EQ(type("show olt-encryption"), answer("encryption", "downlink"));
    NEP_start_encryption(0, 5, LLID_ENCRYPTION_UPLINK_DOWNLINK);
    EXPECT_EQ(type("show olt-encryption"), answer("encryption", "uplink-downlink"));
}

TEST_F(ShowLlid, EveryNodeAndForm)
{
    for (const Show& show : shows) {
        enter_llid(5);
        const std::string expected = type(show.node_form);
        EXPECT_EQ(expected.find(std::string("OLT_id: 0 \r\n") + show.label + ": "), 0u);
        const Calls call = journal();
        ASSERT_EQ(call.size(), 1u);
        for (const int node : {VIEW_NODE, ENABLE_NODE, CONFIG_NODE}) {
            enter(node, 1);
            session->llid = 77;
            for (const char* target : {"0 5", "0x0 0x05"}) {
                EXPECT_EQ(type(std::string("show llid ") + show.word + " " + target), expected) << node;
                EXPECT_EQ(result, 0);
                EXPECT_EQ(journal(), call);
            }
            EXPECT_EQ(type(std::string("show llid ") + show.word + " 0 llid-mac-address 02-00-00-00-00-05"), expected);
            EXPECT_EQ(result, 0);
            EXPECT_EQ(journal(), (Calls{"Mac_address_exist(0, 02-00-00-00-00-05) = 1 -> 5", call[0]}));
        }
    }
}

// A link that was entered by address is looked up again: its ONU may have another link by now.
TEST_F(ShowLlid, OfTheLinkThatAnAddressHasNow)
{
    for (const Show& show : shows) {
        enter_llid(5);
        const std::string expected = type(show.node_form);
        const Calls call = journal();
        ASSERT_EQ(call.size(), 1u);
        enter(OLT_NODE);
        type("llid llid-mac-address 02-00-00-00-00-05");
        session->llid = 77;
        journal();
        EXPECT_EQ(type(show.node_form), expected);
        EXPECT_EQ(result, 0);
        EXPECT_EQ(journal(), (Calls{"Mac_address_exist(0, 02-00-00-00-00-05) = 1 -> 5", call[0]}));
    }
}

TEST_F(ShowLlid, RefusedTargets)
{
    struct Case {
        const char* target;
        const char* line;
        int result;
    };
    const Case cases[] = {
        {"x 5", "Error reading OLT_id parameter for command from input, aborting\r\n", -1},
        {"0 x", "Error reading LLID_INDEX parameter for command from input, aborting\r\n", -1},
        {"0 -32768", "Error in range of LLID_INDEX parameter for command from input min:-32767 max:32767, aborting\r\n",
         -1},
        {"0 llid-mac-address 02-00-00-00-00-0g",
         "Error reading MAC address parameter from the MAC address string, aborting\r\n", 0},
        {"0 llid-mac-address ff-ff-ff-ff-ff-ff", "There is no ff-ff-ff-ff-ff-ff mac address in the system\r\n", 0},
    };
    for (const Show& show : shows) {
        for (const Case& test : cases) {
            EXPECT_EQ(type(std::string("show llid ") + show.word + " " + test.target), test.line);
            EXPECT_EQ(result, test.result);
        }
    }
    for (const std::string& call : journal())
        EXPECT_TRUE(call.starts_with("Mac_address_exist(")) << call;
}

TEST_F(ShowLlid, FailuresAreReported)
{
    for (const Show& show : shows) {
        enter_llid(5);
        inject(show.operation, -5);
        EXPECT_EQ(type(show.node_form), HARDWARE);
        EXPECT_EQ(result, -5);
        enter_llid(5, 1);
        EXPECT_EQ(type(show.node_form), NO_OLT);
        EXPECT_EQ(result, -1003);
    }
    for (const char* line : {"show authorize", "show encryption", "show olt-encryption"}) {
        enter_llid(6);
        EXPECT_EQ(type(line), NO_ONU);
        EXPECT_EQ(result, -1007);
    }
}

} // namespace
