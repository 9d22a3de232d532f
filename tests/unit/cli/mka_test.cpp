// SPDX-License-Identifier: Apache-2.0
#include "olt/mka.h"

#include "links_fixture.h"

namespace {

constexpr const char* NOT_INITIALIZED = "Command return error.\r\nnot initilaized (error code : -1016)\r\n";
constexpr const char* CAK = "000102030405060708090a0b0c0d0e0f";
constexpr const char* CAK_32 = "000102030405060708090a0b0c0d0e0f101112131415161718191a1b1c1d1e1f";

class Mka : public Links {
  protected:
    std::string set(const std::string& words, int16_t llid = 5)
    {
        return type("set mka-parameter olt 0 llid " + std::to_string(llid) + " param " + words);
    }
    std::string show(const std::string& parameter, int16_t llid = 5)
    {
        return type("show mka-parameter olt 0 llid " + std::to_string(llid) + " param " + parameter);
    }
    void prepare(int16_t llid = 5)
    {
        EXPECT_EQ(set("mka-enable value enable", llid), "");
        EXPECT_EQ(set("mka-cak-name value 01", llid), "");
        EXPECT_EQ(set(std::string("mka-cak value ") + CAK, llid), "");
    }
    std::string exchange(int16_t llid = 5)
    {
        return type("mka-exchange-key olt 0 llid " + std::to_string(llid));
    }
    static std::string state(const char* word, int16_t llid = 5)
    {
        return "mka-state-changed: olt 0, llid " + std::to_string(llid) + ", state " + word + " \r\n";
    }
};

// --- Parameters --------------------------------------------------------------------------------------------------

TEST_F(Mka, GlobalParameters)
{
    struct Case {
        const char* word;
        const char* label;
        const char* before;
        std::vector<std::string> accepted;
        std::vector<std::string> refused;
    };
    const Case cases[] = {
        {"mka-keep-alive-interval", "mka keep alive interval", "2000", {"100", "6000"}, {"99", "6001"}},
        {"mka-keep-alive-timeout", "mka keep alive timeout", "6000", {"60000", "6000"}, {"60001", "5999"}},
        {"mka-retransmit-interval", "mka retransmit interval", "1000", {"100", "60000"}, {"99", "60001"}},
        {"mka-retransmit-num", "mka retransmit num", "3", {"1", "10"}, {"0", "11"}},
        {"mka-confidential-offset", "mka confidential offset", "0", {"30", "50", "0"}, {"1", "51"}},
        {"mka-pn-thr", "mka pn thr", "3221225472", {"1", "2147483647"}, {"0"}},
    };
    int code = 0;
    for (const Case& test : cases) {
        const std::string set_line = std::string("set mka-global-parameter olt 0 param ") + test.word + " value ";
        const std::string show_line = std::string("show mka-global-parameter olt 0 param ") + test.word;
        const std::string arguments = "(0, " + std::to_string(code) + ")";
        EXPECT_EQ(type(show_line), std::string("OLT_id: 0 \r\n") + test.label + ": " + test.before + " \r\n");
        EXPECT_EQ(result, 0);
        EXPECT_EQ(journal(), Calls{"NEP_mka_get_global_parameter" + arguments + " = 0 -> " + test.before});
        for (const std::string& value : test.accepted) {
            EXPECT_EQ(type(set_line + value), "") << set_line << value;
            EXPECT_EQ(result, 0);
            EXPECT_EQ(journal(),
                      Calls{"NEP_mka_set_global_parameter(0, " + std::to_string(code) + ", " + value + ") = 0"});
            EXPECT_EQ(type(show_line), std::string("OLT_id: 0 \r\n") + test.label + ": " + value + " \r\n");
            journal();
        }
        for (const std::string& value : test.refused) {
            EXPECT_EQ(type(set_line + value), BAD_PARAMETER) << set_line << value;
            EXPECT_EQ(result, -4);
        }
        journal();
        ++code;
    }
    EXPECT_EQ(type("set mka-global-parameter olt 0 param mka-pn-thr value 0xFFFFFFFF"), "");
    EXPECT_EQ(type("show mka-global-parameter olt 0 param mka-pn-thr"), "OLT_id: 0 \r\nmka pn thr: 4294967295 \r\n");
}

TEST_F(Mka, ParametersOfALink)
{
    struct Case {
        const char* word;
        int code;
        std::string value;
        std::string journaled;
        std::string shown;
    };
    const std::string name(64, 'A');
    const Case cases[] = {
        {"mka-enable", 0, "enable", "1", "mka enable: enable"},
        {"mka-enable", 0, "disable", "0", "mka enable: disable"},
        {"mka-actor-mem-id", 1, "0102030405060708090a0B0C", "0102030405060708090a0b0c",
         "mka actor mem id: 0102030405060708090a0b0c"},
        {"mka-cak-name", 2, "7f", "7f", "mka cak name: 7f"},
        {"mka-cak-name", 2, name, std::string(64, 'a'), "mka cak name: " + std::string(64, 'a')},
        {"mka-cak", 3, CAK, CAK, std::string("mka cak: ") + CAK},
        {"mka-cak", 3, CAK_32, CAK_32, std::string("mka cak: ") + CAK_32},
        {"mka-sci", 6, "0", "0", "mka sci: 0x0000000000000000"},
        {"mka-sci", 6, "0x000ac40000010005", "3030254046216197", "mka sci: 0x000ac40000010005"},
        {"mka-sci", 6, "18446744073709551615", "18446744073709551615", "mka sci: 0xffffffffffffffff"},
    };
    for (const Case& test : cases) {
        const std::string code = std::to_string(test.code);
        EXPECT_EQ(set(std::string(test.word) + " value " + test.value), "") << test.word;
        EXPECT_EQ(result, 0);
        EXPECT_EQ(journal(), Calls{"NEP_mka_set_llid_parameter(0, 5, " + code + ", " + test.journaled + ") = 0"});
        EXPECT_EQ(show(test.word), "OLT_id: 0 \r\n" + test.shown + " \r\n");
        EXPECT_EQ(result, 0);
        EXPECT_EQ(journal(), Calls{"NEP_mka_get_llid_parameter(0, 5, " + code + ") = 0 -> " + test.journaled});
    }
}

TEST_F(Mka, ParametersThatAreOnlyShown)
{
    const std::pair<const char*, const char*> empty[] = {{"mka-kek", "mka kek: none"},
                                                         {"mka-ick", "mka ick: none"},
                                                         {"mka-key-seed", "mka key seed: none"},
                                                         {"mka-sak", "mka sak: none"},
                                                         {"mka-mn", "mka mn: 0"}};
    int code = 4;
    for (const auto& [word, shown] : empty) {
        EXPECT_EQ(show(word), std::string("OLT_id: 0 \r\n") + shown + " \r\n");
        EXPECT_EQ(result, 0);
        if (code == 6) ++code; // the one between them can be set
        EXPECT_EQ(journal(), Calls{"NEP_mka_get_llid_parameter(0, 5, " + std::to_string(code) + ") = 0 -> 0"});
        ++code;
        set(std::string(word) + " value 00");
        EXPECT_EQ(status, engine::MatchStatus::Unknown) << word;
    }
    MKA_value value = {};
    value.length = 16;
    for (const int32_t parameter : {4, 5, 7, 8, 9, 10, -1})
        EXPECT_EQ(NEP_mka_set_llid_parameter(0, 5, parameter, &value), -4) << parameter;
    EXPECT_EQ(NEP_mka_get_llid_parameter(0, 5, 10, &value), -4);
    EXPECT_EQ(NEP_mka_get_llid_parameter(0, 5, -1, &value), -4);
}

TEST_F(Mka, LengthsThatTheDeviceRefuses)
{
    for (const char* words : {"mka-actor-mem-id value 00", "mka-actor-mem-id value 0102030405060708090a0b0c0d",
                              "mka-cak value 00", "mka-cak value 000102030405060708090a0b0c0d0e0f10"}) {
        EXPECT_EQ(set(words), BAD_PARAMETER) << words;
        EXPECT_EQ(result, -4);
    }
}

TEST_F(Mka, Words)
{
    const std::string param_error = "Error reading param parameter (of the type mka_parameter), aborting\r\n";
    const std::string global_error = "Error reading param parameter (of the type mka_global_parameter), aborting\r\n";
    const std::string read_error = "Error reading VALUE parameter for command from input, aborting\r\n";
    const std::string negative = "Error reading negative value of VALUE parameter from input, aborting\r\n";
    const std::string too_long = "Error in range of VALUE parameter for command from input min:1 max:32, aborting\r\n";
    const std::string long_octets(66, '0');
    struct Case {
        cmd_handler* handler;
        std::vector<std::string> words;
        std::string message;
    };
    const Case cases[] = {
        {set_mka_parameter_bool, {"0", "5", "mka-cak", "enable"}, param_error}, // each command has its own parameters
        {set_mka_parameter_bool, {"0", "5", "", "enable"}, param_error},
        {set_mka_parameter_bool,
         {"0", "5", "mka-enable", "on"},
         "Error reading value parameter (of the type enable_disable), aborting\r\n"},
        {set_mka_parameter_bool,
         {"0", "5", "mka-enable", "0123456789"},
         "Error reading value parameter, internal buffer is too short, aborting!\r\n"},
        {set_mka_parameter_ubuf, {"0", "5", "mka-kek", "00"}, param_error},
        {set_mka_parameter_ubuf, {"0", "5", "mka-enable", "00"}, param_error},
        {set_mka_parameter_ubuf, {"0", "5", "mka-cak", ""}, read_error},
        {set_mka_parameter_ubuf, {"0", "5", "mka-cak", "0"}, read_error},
        {set_mka_parameter_ubuf, {"0", "5", "mka-cak", "0x"}, read_error},
        {set_mka_parameter_ubuf, {"0", "5", "mka-cak", "0g"}, read_error},
        {set_mka_parameter_ubuf, {"0", "5", "mka-cak", long_octets}, too_long},
        {set_mka_parameter_ulong64, {"0", "5", "mka-mn", "1"}, param_error},
        {set_mka_parameter_ulong64, {"0", "5", "mka-sci", "x"}, read_error},
        {set_mka_parameter_ulong64, {"0", "5", "mka-sci", ""}, read_error},
        {set_mka_parameter_ulong64, {"0", "5", "mka-sci", "1k"}, read_error},
        {set_mka_parameter_ulong64, {"0", "5", "mka-sci", "0x-1"}, read_error},
        {set_mka_parameter_ulong64, {"0", "5", "mka-sci", "18446744073709551616"}, read_error},
        {set_mka_parameter_ulong64, {"0", "5", "mka-sci", "0x10000000000000000"}, read_error},
        {set_mka_parameter_ulong64, {"0", "5", "mka-sci", "-1"}, negative},
        {set_mka_parameter_ulong, {"0", "mka-enable", "1"}, global_error},
        {set_mka_parameter_ulong, {"0", "mka-pn-thr", "x"}, read_error},
        {set_mka_parameter_ulong, {"0", "mka-pn-thr", "-1"}, negative},
        {set_mka_parameter_ulong, {"0", "mka-pn-thr", "0x100000000"}, read_error},
        {show_mka_parameter, {"0", "5", "mka"}, param_error},
        {show_mka_global_parameter, {"0", "mka"}, global_error},
    };
    for (const Case& test : cases) {
        EXPECT_EQ(call(test.handler, test.words), test.message) << test.words.back();
        EXPECT_EQ(result, -1);
    }
    EXPECT_EQ(journal(), Calls{});
}

TEST_F(Mka, Indices)
{
    const std::pair<const char*, const char*> links[] = {
        {"olt x llid 5", "Error reading OLT_id parameter for command from input, aborting\r\n"},
        {"olt 32768 llid 5",
         "Error in range of OLT_id parameter for command from input min:-32767 max:32767, aborting\r\n"},
        {"olt 0 llid x", "Error reading LLID_INDEX parameter for command from input, aborting\r\n"},
        {"olt 0 llid -32768",
         "Error in range of LLID_INDEX parameter for command from input min:-32767 max:32767, aborting\r\n"},
    };
    const std::pair<const char*, std::string> commands[] = {
        {"mka-exchange-key ", ""},
        {"set mka-parameter ", " param mka-enable value enable"},
        {"set mka-parameter ", " param mka-cak-name value 00"},
        {"set mka-parameter ", " param mka-sci value 1"},
        {"show mka-parameter ", " param mka-sak"},
    };
    for (const auto& [command, rest] : commands) {
        for (const auto& [link, message] : links) {
            EXPECT_EQ(type(command + (link + rest)), message);
            EXPECT_EQ(result, -1);
        }
    }
    for (const char* line : {"set mka-global-parameter olt x param mka-pn-thr value 1",
                             "show mka-global-parameter olt x param mka-pn-thr"}) {
        EXPECT_EQ(type(line), links[0].second);
        EXPECT_EQ(result, -1);
    }
    EXPECT_EQ(journal(), Calls{});
}

TEST_F(Mka, Failures)
{
    const std::pair<const char*, const char*> cases[] = {
        {"mka-exchange-key olt %d llid %d", "NEP_mka_start_exchange_key"},
        {"set mka-parameter olt %d llid %d param mka-enable value enable", "NEP_mka_set_llid_parameter"},
        {"set mka-parameter olt %d llid %d param mka-cak-name value 00", "NEP_mka_set_llid_parameter"},
        {"set mka-parameter olt %d llid %d param mka-sci value 1", "NEP_mka_set_llid_parameter"},
        {"show mka-parameter olt %d llid %d param mka-sak", "NEP_mka_get_llid_parameter"},
        {"set mka-global-parameter olt %d param mka-pn-thr value 1", "NEP_mka_set_global_parameter"},
        {"show mka-global-parameter olt %d param mka-pn-thr", "NEP_mka_get_global_parameter"},
    };
    const auto line_for = [](std::string line, const char* olt, const char* llid) {
        line.replace(line.find("%d"), 2, olt);
        if (const size_t at = line.find("%d"); at != std::string::npos) line.replace(at, 2, llid);
        return line;
    };
    for (const auto& [line, operation] : cases) {
        inject(operation, -5);
        EXPECT_EQ(type(line_for(line, "0", "5")), HARDWARE) << line;
        EXPECT_EQ(result, -5);
        EXPECT_EQ(type(line_for(line, "1", "5")), NO_OLT) << line;
        EXPECT_EQ(result, -1003);
        if (std::string(line).find("llid") == std::string::npos) continue;
        for (const char* llid : {"6", "255", "-1"}) {
            EXPECT_EQ(type(line_for(line, "0", llid)), NO_ONU) << line;
            EXPECT_EQ(result, -1007);
        }
    }
}

// --- The exchange ------------------------------------------------------------------------------------------------

TEST_F(Mka, AnExchangeNeedsItsKey)
{
    EXPECT_EQ(exchange(), NOT_INITIALIZED);
    EXPECT_EQ(result, -1016);
    set("mka-enable value enable");
    EXPECT_EQ(exchange(), NOT_INITIALIZED);
    set(std::string("mka-cak value ") + CAK);
    EXPECT_EQ(exchange(), NOT_INITIALIZED);
    set("mka-cak-name value 01");
    journal();
    EXPECT_EQ(exchange(), "");
    EXPECT_EQ(result, 0);
    EXPECT_EQ(journal(), Calls{"NEP_mka_start_exchange_key(0, 5) = 0"});
    set("mka-enable value disable");
    EXPECT_EQ(exchange(), NOT_INITIALIZED);
}

TEST_F(Mka, AnExchangeInstallsAKey)
{
    EventLines events;
    prepare();
    EXPECT_EQ(exchange(), "");
    EXPECT_EQ(events.after(999), state("negotiating"));
    EXPECT_EQ(show("mka-sak"), "OLT_id: 0 \r\nmka sak: none \r\n");
    EXPECT_EQ(events.after(1), "mka-key-installed: olt 0, llid 5, association 0, key-number 1 \r\n" + state("secured"));
    const std::string first = show("mka-sak");
    EXPECT_EQ(first.size(), std::string("OLT_id: 0 \r\nmka sak:  \r\n").size() + 32);
    for (const char* key : {"mka-kek", "mka-ick", "mka-key-seed"})
        EXPECT_EQ(show(key).find("none"), std::string::npos) << key;
    EXPECT_NE(show("mka-kek").substr(21), show("mka-ick").substr(21));
    EXPECT_EQ(show("mka-mn"), "OLT_id: 0 \r\nmka mn: 1 \r\n");
    // The OLT names itself where it was not told how.
    EXPECT_EQ(show("mka-sci"), "OLT_id: 0 \r\nmka sci: 0x000ac40000010006 \r\n");
    EXPECT_EQ(show("mka-actor-mem-id").find("none"), std::string::npos);

    EXPECT_EQ(exchange(), "");
    EXPECT_EQ(events.after(1000), state("negotiating") +
                                      "mka-key-installed: olt 0, llid 5, association 1, key-number 2 \r\n" +
                                      state("secured"));
    EXPECT_NE(show("mka-sak"), first);
    for (int number = 3; number <= 5; ++number) {
        exchange();
        EXPECT_EQ(events.after(1000), state("negotiating") + "mka-key-installed: olt 0, llid 5, association " +
                                          std::to_string((number - 1) % 4) + ", key-number " + std::to_string(number) +
                                          " \r\n" + state("secured"));
    }
    set("mka-enable value disable");
    EXPECT_EQ(events.after(), state("off"));
    EXPECT_EQ(show("mka-sak"), "OLT_id: 0 \r\nmka sak: none \r\n");
}

TEST_F(Mka, ALinkThatDoesNotAnswerFails)
{
    EventLines events;
    prepare(9); // not authorized
    type("set mka-global-parameter olt 0 param mka-retransmit-interval value 200");
    type("set mka-global-parameter olt 0 param mka-retransmit-num value 4");
    EXPECT_EQ(exchange(9), "");
    EXPECT_EQ(events.after(799), state("negotiating", 9));
    EXPECT_EQ(show("mka-mn", 9), "OLT_id: 0 \r\nmka mn: 4 \r\n");
    EXPECT_EQ(events.after(1), state("failed", 9));
    EXPECT_EQ(events.after(10000), "");
}

TEST_F(Mka, AnotherKeyEndsAnExchange)
{
    EventLines events;
    prepare();
    for (const std::string& words : {std::string("mka-cak-name value 02"), std::string("mka-cak value ") + CAK_32}) {
        exchange();
        EXPECT_EQ(events.after(), state("negotiating"));
        EXPECT_EQ(set(words), "");
        EXPECT_EQ(events.after(), state("failed"));
        EXPECT_EQ(events.after(10000), "");
    }
    exchange();
    events.after();
    set("mka-enable value disable");
    EXPECT_EQ(events.after(10000), state("off"));
}

TEST_F(Mka, AnOnuThatLeavesTakesItsKeysAlong)
{
    EventLines events;
    prepare();
    exchange();
    enter(OLT_NODE);
    type("onu deregister 5 wait-for-completion");
    EXPECT_EQ(events.after(10000),
              state("negotiating") + "onu-deregistered: olt 0, onu 5, mac 02-00-00-00-00-05, reason command \r\n");
}

} // namespace
