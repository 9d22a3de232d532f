// SPDX-License-Identifier: Apache-2.0
#include "managed_onus_fixture.h"

#include <algorithm>
#include <cstring>

ManagedOnus::ManagedOnus()
{
    load(laboratory({{5, "rate = '10g'"},
                     {6, "extended_oam = 'none'\nremote_management = 'none'"},
                     {7, "extended_oam = 'silent'\nremote_management = 'silent'"},
                     {9, "mode = 'unauthorized'"},
                     {254}}));
}

void ManagedOnus::enter_onu_by_mac(const char* mac)
{
    enter(ONU_NODE);
    session->onu_id = 0;
    session->onu_by_index = 0;
    strcpy(session->onu_mac, mac);
}

ManagedOnus::Show ManagedOnus::remote_show(const std::string& object, const std::string& own)
{
    return {"show onu remote " + object, "show remote " + object, own};
}

ManagedOnus::Show ManagedOnus::ctc_show(const std::string& object, const std::string& own)
{
    return {"show ctc onu " + object, "show ctc " + object, own};
}

void ManagedOnus::expect_show(const Show& show, const std::string& text, const std::string& call)
{
    const std::string look_up = "Mac_address_exist(0, 02-00-00-00-00-05) = 1 -> 5";
    for (const int node : show.nodes) {
        enter(node);
        EXPECT_EQ(type(show.global + " 0 5" + show.own), text) << show.global;
        EXPECT_EQ(result, 0);
        EXPECT_EQ(journal(), Calls{call});
        if (!show.has_mac_form) continue;
        EXPECT_EQ(type(show.global + " 0 onu-mac-address 02-00-00-00-00-05" + show.own), text) << show.global;
        EXPECT_EQ(result, 0);
        EXPECT_EQ(journal(), (Calls{look_up, call}));
    }
    enter_onu(5);
    EXPECT_EQ(type(show.in_onu_node + show.own), text) << show.in_onu_node;
    EXPECT_EQ(result, 0);
    EXPECT_EQ(journal(), Calls{call});
    enter_onu_by_mac("02-00-00-00-00-05");
    EXPECT_EQ(type(show.in_onu_node + show.own), text) << show.in_onu_node;
    EXPECT_EQ(result, 0);
    EXPECT_EQ(journal(), (Calls{look_up, call}));
    enter_onu(5);
}

void ManagedOnus::expect_set(const std::string& line, const std::string& call)
{
    EXPECT_EQ(type(line), "") << line;
    EXPECT_EQ(result, 0) << line;
    EXPECT_EQ(journal(), Calls{call});
}

void ManagedOnus::expect_refusal(const std::string& line, const char* words, int code, int returned)
{
    EXPECT_EQ(type(line), failure(words, code)) << line;
    EXPECT_EQ(result, returned) << line;
    journal();
}

void ManagedOnus::expect_keyword(cmd_handler* handler, const std::vector<std::string>& words, const std::string& name,
                                 const std::string& type_name, size_t room)
{
    const std::string unknown = "Error reading " + name + " parameter (of the type " + type_name + "), aborting\r\n";
    const std::pair<std::string, std::string> refusals[] = {
        {std::string(room, 'x'), "Error reading " + name + " parameter, internal buffer is too short, aborting!\r\n"},
        {std::string(room - 1, 'x'), unknown},
        {"Enable", unknown},
        {"", "Error reading " + name + " parameter for command from input, aborting\r\n"}};
    for (const auto& [word, refusal] : refusals) {
        std::vector<std::string> arguments = words;
        std::replace(arguments.begin(), arguments.end(), std::string("?"), word);
        EXPECT_EQ(call(handler, arguments), refusal);
        EXPECT_EQ(result, -1);
    }
    EXPECT_EQ(journal(), Calls{});
}

void ManagedOnus::expect_remote_failures(const std::string& line, const char* operation)
{
    expect_failures(line, operation,
                    {{-13013, "OLT not exist"},
                     {-13015, "ONU not available"},
                     {{-13014, "query failed"}, {-13009, "discard OAM"}, {-17001, "Error code was not found!!!"}},
                     false});
}

void ManagedOnus::expect_ctc_failures(const std::string& line, const char* operation)
{
    expect_failures(
        line, operation,
        {{-17003, "OLT not exist"},
         {-17002, "ONU not available"},
         {{-17001, "query failed"}, {-17009, "ONU returned bad param"}, {-13014, "Error code was not found!!!"}},
         true});
}

void ManagedOnus::expect_failure(const std::string& line, const Failure& told, const Family& family)
{
    EXPECT_EQ(type(line), failure(told.words, told.code)) << line;
    EXPECT_EQ(result, family.returns_code ? told.code : 0) << line;
}

void ManagedOnus::expect_failures(const std::string& line, const char* operation, const Family& family)
{
    for (const int16_t onu_id : {6, 8, 255, -1}) {
        enter_onu(onu_id);
        expect_failure(line, family.no_onu, family);
    }
    for (const int16_t onu_id : {7, 9}) {
        enter_onu(onu_id);
        expect_failure(line, {-2, "time out"}, family);
    }
    for (const int16_t olt_id : {1, 2}) {
        enter_onu(5, ONU_NODE, olt_id);
        expect_failure(line, family.no_olt, family);
    }
    enter_onu(5);
    for (const Failure& told : family.injected) {
        inject(operation, told.code);
        expect_failure(line, told, family);
    }
    journal();
}

std::string ManagedOnus::failure(const char* words, int code)
{
    return std::string("Command return error.\r\n") + words + " (error code : " + std::to_string(code) + ")\r\n";
}
