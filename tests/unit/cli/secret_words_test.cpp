// SPDX-License-Identifier: Apache-2.0
// No command of the library takes a key or password that the history or the audit record would show.
#include "host/secret_words.h"

#include <set>

#include "console_fixture.h"
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
