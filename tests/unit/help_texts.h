// SPDX-License-Identifier: Apache-2.0
// What every line of help owes the operator.
#pragma once

#include <algorithm>
#include <cctype>
#include <regex>
#include <string>
#include <vector>

#include <epon/engine.h>

namespace help_texts {

// The word without what is not spoken: "OLT_INDEX" and "Olt index" are the same.
inline std::string spoken(const std::string& text)
{
    std::string letters;
    for (char c : text)
        if (std::isalnum(static_cast<unsigned char>(c)) != 0)
            letters += static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
    return letters;
}

// The help of alternatives is shown line by line: "enable: it is" as "It is", without what stands beside it.
inline bool leans_on_another_line(const std::string& word, const std::string& help)
{
    static const std::regex a_verb_alone("([Ii]t|[Tt]hey|[Nn]one) (is|are|does|do|can|has|have)( not)?(,.*)?");
    static const std::regex an_alternative("(; |^)[^:;]+: ([^;]+)");
    if (word.front() != '(') return std::regex_match(help, a_verb_alone);
    for (std::sregex_iterator part(help.begin(), help.end(), an_alternative), end; part != end; ++part)
        if (std::regex_match((*part)[2].str(), a_verb_alone)) return true;
    return false;
}

// Help that names one alternative, as "enable: it is on; disable, off: it is off" does, names all of them, each at the
// beginning of a part: an alternative without a part is shown the whole line, and what is no part of its own is shown
// with the alternative before it.
inline std::string fault_of_alternatives(const std::string& word, const std::string& help)
{
    static const std::regex an_alternative("[^()| \\t]+");
    std::vector<std::string> unnamed;
    for (std::sregex_iterator at(word.begin(), word.end(), an_alternative), end; at != end; ++at)
        unnamed.push_back(at->str());
    const std::size_t alternatives = unnamed.size();
    std::string stray;
    for (std::size_t at = 0; at < help.size(); at += 2) {
        const auto is_named = [&](const std::string& name) {
            return help.compare(at, name.size(), name) == 0 && help.find_first_of(":,", at) == at + name.size();
        };
        const auto named = std::find_if(unnamed.begin(), unnamed.end(), is_named);
        if (named != unnamed.end()) {
            at += named->size();
            unnamed.erase(named);
            if (help[at] == ',') continue;
        } else {
            stray = "says \"" + help.substr(at) + "\" of no word";
        }
        at = std::min(help.size(), help.find("; ", at));
    }
    if (unnamed.size() == alternatives) return "";
    return stray.empty() && !unnamed.empty() ? "does not name " + unnamed.front() : stray;
}

// What is wrong with the help of one word; empty when nothing is.
inline std::string fault_of_line(const std::string& word, const std::string& help)
{
    static const std::regex range("<-?(\\w+)-(-?\\w+)>");
    static const std::regex variable("[A-Z][A-Z0-9_]*");
    if (help.empty() || help.front() == ' ' || help.back() == ' ') return "is empty, or has blanks at an end";
    if (spoken(help) == spoken(word)) return "says the word again";
    if (leans_on_another_line(word, help)) return "cannot be understood alone";
    if (word.front() != '(' && std::islower(static_cast<unsigned char>(help.front())) != 0) return "begins small";
    std::smatch bounds;
    if (std::regex_match(word, bounds, range)) {
        if (spoken(help).find(spoken(bounds[2])) == std::string::npos) return "names no range";
    } else if (std::regex_match(word, variable)) {
        const bool has_number = help.find_first_of("0123456789") != std::string::npos;
        const bool is_told_elsewhere =
            help.find("Path") != std::string::npos || help.find("\"show ") != std::string::npos;
        if (!has_number && !is_told_elsewhere) return "names no range, length or form";
    }
    return word.front() == '(' ? fault_of_alternatives(word, help) : "";
}

// The first fault in a command's help, with its words; empty when there is none.
inline std::string fault(const cmd_element& element)
{
    static const std::regex a_word("\\([^)]*\\)|[^ \t(]+");
    const std::string grammar = element.string, doc = element.doc;
    std::size_t at = 0;
    for (std::sregex_iterator word(grammar.begin(), grammar.end(), a_word), end; word != end; ++word) {
        const std::size_t line_end = doc.find('\n', at);
        if (line_end == std::string::npos) return grammar + ": " + word->str() + " has no help";
        const std::string help = doc.substr(at, line_end - at);
        const std::string wrong = fault_of_line(word->str(), help);
        if (!wrong.empty()) return grammar + ": " + word->str() + ": \"" + help + "\" " + wrong;
        at = line_end + 1;
    }
    return "";
}

} // namespace help_texts
