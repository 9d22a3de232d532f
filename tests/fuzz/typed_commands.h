// SPDX-License-Identifier: Apache-2.0
// Whole commands for a fuzzer of typed bytes: it would hardly guess a line that a handler looks at.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include <epon/engine.h>

#include "host/engine/engine_host.h"

// Stands in an input for a command: two bytes behind it choose one of those that the library installs, by a hash, so
// that an input keeps its meaning when others are added; and each word of its grammar that is not fixed takes one more
// byte. No terminal sends the mark, so it takes nothing from other inputs.
constexpr char COMMAND_MARK = 0x1e;

struct TypedNode {
    int node;
    std::string_view path; // what leads there from anywhere
};
constexpr TypedNode typed_nodes[] = {
    {VIEW_NODE, "end\rend\rdisable\r"},
    {ENABLE_NODE, "end\rend\renable\r"},
    {CONFIG_NODE, "end\rend\renable\rconfigure terminal\r"},
    {OLT_NODE, "end\rend\renable\rconfigure terminal\rolt 0\r"},
    {OLT_PON_NODE, "end\rend\renable\rconfigure terminal\rolt 0\rpon\r"},
    {ONU_NODE, "end\rend\renable\rconfigure terminal\rolt 0\ronu 0\r"},
    {ONU_PON_NODE, "end\rend\renable\rconfigure terminal\rolt 0\ronu 0\rpon\r"},
    {LLID_NODE, "end\rend\renable\rconfigure terminal\rolt 0\rllid 0\r"},
    {BC_LLID_NODE, "end\rend\renable\rconfigure terminal\rolt 0\rllid broadcast\r"},
};

// What a word of an operator's choice becomes; bytes beyond that are a number.
constexpr std::string_view typed_values[] = {
    "0",       "1",    "2",           "3",         "5",       "7",
    "9",       "16",   "254",         "255",       "256",     "4095",
    "65534",   "-1",   "65535",       "65536",     "0x0",     "0xff",
    "0x5e",    "0xg",  "4294967295",  "999999999", "3x",      "02-4e-50-50-00-00",
    "none",    "true", "false",       "10.0.0.1",  "1;2;3;4", "02-4e-50-50-00-01",
    "enable",  "all",  "0x111111;32", "a",         "elm1",    "ff-ff-ff-ff-ff-ff",
    "disable", "",     "-",           "%n%s",      ";;;;",    "00112233445566778899aabbccddeeff",
};

class TypedCommands {
  public:
    // All bytes of an input as they are typed.
    static std::string typed(std::string_view input)
    {
        std::string text;
        int node = -1;
        while (!input.empty()) {
            if (input[0] != COMMAND_MARK || input.size() < 3) {
                text += input[0];
                input.remove_prefix(1);
                continue;
            }
            auto number = static_cast<unsigned>(byte_of(input, 1) * 256U + byte_of(input, 2));
            input.remove_prefix(3);
            const Installed& command = chosen(number);
            if (command.at->node != node) text += command.at->path;
            node = command.at->node;
            text += line(command.grammar, &input) + '\r';
        }
        return text;
    }

  private:
    struct Installed {
        unsigned hash;
        const TypedNode* at;
        std::string_view grammar;
    };

    static unsigned byte_of(std::string_view text, std::size_t at)
    {
        return static_cast<unsigned char>(text[at]);
    }

    static unsigned hash_of(int node, std::string_view grammar)
    {
        std::uint32_t hash = 2166136261U + static_cast<unsigned>(node);
        for (char byte : grammar)
            hash = (hash ^ static_cast<unsigned char>(byte)) * 16777619U;
        return hash >> 16;
    }

    static const Installed& chosen(unsigned number)
    {
        auto at = std::lower_bound(commands().begin(), commands().end(), number,
                                   [](const Installed& one, unsigned hash) { return one.hash < hash; });
        return at == commands().end() ? commands().front() : *at;
    }

    static const std::vector<Installed>& commands()
    {
        static const std::vector<Installed>& all = *[] {
            auto* made = new std::vector<Installed>;
            engine::for_each_element(engine::Origin::Library, [made](int node, const cmd_element& element) {
                for (const TypedNode& at : typed_nodes)
                    if (at.node == node) made->push_back({hash_of(node, element.string), &at, element.string});
            });
            std::stable_sort(made->begin(), made->end(),
                             [](const Installed& a, const Installed& b) { return a.hash < b.hash; });
            return made;
        }();
        return all;
    }

    static unsigned take_byte(std::string_view* input)
    {
        if (input->empty()) return 0;
        unsigned byte = byte_of(*input, 0);
        input->remove_prefix(1);
        return byte;
    }

    // The member of a group that a byte chooses.
    static std::string_view member(std::string_view group, std::string_view* input)
    {
        std::vector<std::string_view> members;
        for (std::size_t end; !group.empty(); group.remove_prefix(end)) {
            std::size_t start = group.find_first_not_of("(|) \t");
            if (start == std::string_view::npos) break;
            group.remove_prefix(start);
            end = std::min(group.find_first_of("|) \t"), group.size());
            members.push_back(group.substr(0, end));
        }
        return members.empty() ? std::string_view{} : members[take_byte(input) % members.size()];
    }

    static std::string word(std::string_view text, std::string_view* input)
    {
        if (text.starts_with('(')) text = member(text, input);
        if (text.find_first_of("abcdefghijklmnopqrstuvwxyz") != std::string_view::npos) return std::string(text);
        constexpr std::size_t VALUES = sizeof typed_values / sizeof typed_values[0];
        unsigned byte = take_byte(input);
        return byte < VALUES ? std::string(typed_values[byte]) : std::to_string(byte - VALUES);
    }

    static std::string line(std::string_view grammar, std::string_view* input)
    {
        std::string text;
        while (!grammar.empty()) {
            std::size_t start = grammar.find_first_not_of(" \t");
            if (start == std::string_view::npos) break;
            grammar.remove_prefix(start);
            std::size_t end = grammar[0] == '(' ? grammar.find(')') : grammar.find_first_of(" \t(");
            end = end == std::string_view::npos ? grammar.size() : end + (grammar[0] == '(' ? 1 : 0);
            text += (text.empty() ? "" : " ") + word(grammar.substr(0, end), input);
            grammar.remove_prefix(end);
        }
        return text;
    }
};
