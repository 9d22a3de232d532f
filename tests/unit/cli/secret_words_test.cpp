// SPDX-License-Identifier: Apache-2.0
// No command of the library takes a key or password that the history or the audit record would show.
#include "host/secret_words.h"

#include <fstream>
#include <set>
#include <string>
#include <vector>

#include <unistd.h>

#include "console_fixture.h"
#include "host/engine/audit.h"
#include "host/engine/dispatch.h"
#include "host/engine/secrets.h"

namespace {

// Arguments that are called keys and are none: the fields that a hash is made of.
const std::set<std::string_view> public_names = {"VLAN_ID_KEY", "VLAN_PRI_KEY", "MAC_SA_KEY", "MAC_DA_KEY"};

bool names_a_secret(std::string_view word)
{
    if (word.find_first_of("abcdefghijklmnopqrstuvwxyz") != std::string_view::npos || public_names.count(word) > 0)
        return false;
    for (std::string_view part : {"KEY", "PASSWORD", "SECRET", "PASSPHRASE"})
        if (word.find(part) != std::string_view::npos) return true;
    return false;
}

// A grammar as a line: the first member of each group.
std::string example(std::string_view grammar)
{
    std::string line;
    bool skips = false;
    for (char c : grammar) {
        if (c == '|') skips = true;
        if (c == ')') skips = false;
        if (c == '(' || c == ')' || c == '|')
            line += c == ')' ? " " : "";
        else if (!skips)
            line += c;
    }
    return line;
}

} // namespace

class SecretWords : public Console {};

TEST_F(SecretWords, CoverEveryKeyAndPasswordOfTheGrammars)
{
    install_secret_words();
    int found = 0;
    engine::for_each_element(engine::Origin::Library, [&](int, const cmd_element& element) {
        std::string line = example(element.string);
        std::vector<std::string_view> words = engine::split_words(line);
        std::string storage;
        std::string shown(engine::without_secrets(*engine::session_of(session), line, words, &storage));
        for (std::string_view word : words) {
            if (!names_a_secret(word)) continue;
            ++found;
            EXPECT_EQ(shown.find(word), std::string::npos) << line;
        }
    });
    EXPECT_GE(found, 2);
    engine::set_secret_words({});
}

namespace {

constexpr std::string_view SECRET = "0123456789abcdefgeheim";

bool has_lower_case(std::string_view word)
{
    return word.find_first_of("abcdefghijklmnopqrstuvwxyz") != std::string_view::npos;
}

// What the grammar takes for a word of the operator's choice.
std::string fitting(std::string_view word)
{
    if (word.starts_with('<')) return std::string(word.substr(1, word.find('-') - 1));
    return word == "AA-BB-CC-DD-EE-FF" ? "02-4e-50-50-00-00" : "0";
}

// Lines that tell the secret, as they are typed with care, in a hurry, and wrongly.
std::vector<std::string> tellings(const std::vector<std::string>& words, std::size_t secret_at)
{
    std::string line, in_a_hurry, blanks, slip;
    for (std::size_t i = 0; i < words.size(); ++i) {
        std::string word = words[i], misspelt = word;
        if (i + 1 == secret_at && word.size() >= 3) std::swap(misspelt[1], misspelt[2]);
        bool cut = i + 1 == secret_at && word.size() > 4;
        line += (i > 0 ? " " : "") + word;
        in_a_hurry += (i > 0 ? " " : "") + (cut ? word.substr(0, word.size() - 2) : word);
        blanks += " \t" + word;
        slip += (i > 0 ? " " : "") + misspelt;
    }
    return {line, in_a_hurry, blanks, slip, line + " and more", line + " | count", line + " | no such filter"};
}

} // namespace

// Wherever an operator or an auditor could look for it later.
TEST_F(SecretWords, StandNowhereAfterTheCommand)
{
    install_secret_words();
    std::string path = "/tmp/epon-secret-words-" + std::to_string(getpid());
    std::string error;
    ASSERT_TRUE(engine::open_audit(path, &error)) << error;
    int commands = 0, matched = 0;
    engine::for_each_element(engine::Origin::Library, [&](int node, const cmd_element& element) {
        std::string grammar = example(element.string);
        std::vector<std::string> words;
        std::size_t secret_at = 0;
        bool is_agreement = std::string_view(element.string).find("mka-cak") != std::string_view::npos;
        for (std::string_view word : engine::split_words(grammar)) {
            bool secret = names_a_secret(word) || (word == "VALUE" && is_agreement);
            if (secret) secret_at = words.size();
            words.emplace_back(secret ? SECRET : has_lower_case(word) ? word : fitting(word));
            if (word == "mka-actor-mem-id") words.back() = "mka-cak"; // the member whose value is the key
        }
        if (secret_at == 0) return;
        ++commands;
        for (const std::string& line : tellings(words, secret_at)) {
            enter(node, 0);
            type(line);
            if (status == engine::MatchStatus::Matched) ++matched;
        }
        enter(ENABLE_NODE);
        for (const char* look : {"show history", "show console statistics commands", "who"}) {
            std::string seen = type(look);
            EXPECT_EQ(status, engine::MatchStatus::Matched) << look;
            EXPECT_EQ(seen.find(SECRET), std::string::npos) << look << ": " << seen;
        }
    });
    EXPECT_EQ(commands, 5) << "a new one is found out by its word";
    EXPECT_GE(matched, 4 * commands) << "most of the lines are executed";
    engine::flush_audit();
    std::ifstream file(path);
    std::string line;
    int masked = 0;
    while (std::getline(file, line)) {
        EXPECT_EQ(line.find(SECRET), std::string::npos) << line;
        if (line.find("***") != std::string::npos) ++masked;
    }
    EXPECT_EQ(masked, 7 * commands);
    engine::open_audit("", &error);
    unlink(path.c_str());
    engine::set_secret_words({});
}

TEST_F(SecretWords, HideTheKeyOfAnAgreement)
{
    install_secret_words();
    session->node = CONFIG_NODE;
    type("set mka-par olt 0 llid 1 param mka-cak value 00112233445566778899aabbccddeeff");
    type("802 conf key geheim q 1");
    std::string history = type("show history");
    EXPECT_NE(history.find("set mka-par olt 0 llid 1 param mka-cak value ***\r\n"), std::string::npos) << history;
    EXPECT_EQ(history.find("geheim"), std::string::npos) << history;
    engine::set_secret_words({});
}
