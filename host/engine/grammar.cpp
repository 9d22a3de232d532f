// SPDX-License-Identifier: Apache-2.0
// Parsing of grammar strings and help texts into tokens.
#include "host/engine/grammar.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <limits>
#include <memory>
#include <new>
#include <type_traits>
#include <vector>

#include "host/engine/grammar_words.h"

namespace engine {

namespace {

constexpr std::size_t MAX_TEXT = std::numeric_limits<std::uint16_t>::max();
constexpr std::size_t MAX_FORM = std::numeric_limits<std::uint8_t>::max();
constexpr std::int64_t MAX_HEXADECIMAL = 0xffffffff;

struct Address {
    std::string_view form;
    WordKind kind;
};
constexpr Address ADDRESSES[] = {
    {"A.B.C.D", WordKind::Ipv4},
    {"A:B:C:D", WordKind::HexGroups4},
    {"A:B:C:D:E:F:G:H", WordKind::HexGroups8},
    {"XXXX:XXXX:XXXX:XXXX:XXXX:XXXX:XXXX:XXXX", WordKind::HexGroups8},
    {"AA-BB-CC-DD-EE-FF", WordKind::Mac},
};

static_assert(sizeof(Token) == 6 && alignof(Token) <= alignof(Grammar));
static_assert(std::is_trivially_destructible_v<Grammar> && std::is_trivially_destructible_v<Token>);

// Memory of the parsed forms: handed out in order, never given back.
struct Storage {
    std::vector<std::unique_ptr<std::byte[]>> chunks;
    std::size_t chunk_left = 0;
    std::byte* next = nullptr;

    std::byte* take(std::size_t size)
    {
        constexpr std::size_t CHUNK = 16 * 1024;
        size = (size + alignof(Grammar) - 1) / alignof(Grammar) * alignof(Grammar);
        if (size > chunk_left) {
            std::size_t chunk = size > CHUNK / 4 ? size : CHUNK;
            chunks.push_back(std::make_unique<std::byte[]>(chunk));
            if (chunk == size) return chunks.back().get();
            next = chunks.back().get();
            chunk_left = chunk;
        }
        std::byte* taken = next;
        next += size;
        chunk_left -= size;
        return taken;
    }
};

// What a character may be in a grammar.
enum CharacterClass : std::uint8_t {
    SEPARATOR = 1,
    GROUPING = 2, // ends a word as well
    LOWER = 4,
    UPPER = 8,
    DIGIT = 16,
    JOINING = 32, // in the middle of a word
    DOT = 64,
    FOREIGN = 128
};

constexpr std::array<std::uint8_t, 256> CLASSES = [] {
    std::array<std::uint8_t, 256> classes{};
    classes.fill(FOREIGN);
    classes[' '] = classes['\t'] = SEPARATOR;
    classes['('] = classes[')'] = classes['|'] = GROUPING;
    classes['\0'] = GROUPING; // the end of the text
    for (unsigned letter = 0; letter < 26; letter++) {
        classes['a' + letter] = LOWER;
        classes['A' + letter] = UPPER;
    }
    for (unsigned digit = 0; digit < 10; digit++)
        classes['0' + digit] = DIGIT;
    classes['-'] = classes['_'] = JOINING;
    classes['.'] = DOT;
    return classes;
}();

unsigned class_of(char c)
{
    return CLASSES[static_cast<unsigned char>(c)];
}

bool is_separator(char c)
{
    return class_of(c) == SEPARATOR;
}

// Null, or what is wrong with the form, whose characters are of the classes that it holds.
const char* classify(std::string_view form, unsigned held, WordKind* kind)
{
    if (form.front() == '<') {
        Bounds bounds;
        if (!read_bounds(form, &bounds)) return "is not a range";
        if (bounds.hexadecimal && (bounds.min < 0 || bounds.max > MAX_HEXADECIMAL)) return "exceeds 32 bits";
        *kind = bounds.hexadecimal ? WordKind::Hexadecimal : WordKind::Decimal;
        return nullptr;
    }
    unsigned first = class_of(form.front());
    if (first == UPPER) {
        for (const Address& address : ADDRESSES) {
            if (address.form != form) continue;
            *kind = address.kind;
            return nullptr;
        }
    }
    if ((first & (LOWER | UPPER | DIGIT)) == 0) return "begins with neither a letter nor a digit";
    if ((held & FOREIGN) != 0) return "holds a character that no word may have";
    bool keyword = first == DIGIT || (held & LOWER) != 0;
    if (!keyword && (held & DOT) != 0) return "is neither a variable nor a known form of address";
    *kind = keyword ? WordKind::Keyword : WordKind::Variable;
    return nullptr;
}

// Reads the grammar string into tokens.
struct Parser {
    std::string_view text;
    std::vector<Token>& tokens;
    std::size_t at = 0;
    std::size_t words = 0;
    std::string problem;

    bool done() const
    {
        return at == text.size();
    }

    void skip_separators()
    {
        while (!done() && is_separator(text[at]))
            at++;
    }

    bool refuse(std::string_view what, std::string_view quoted = {})
    {
        if (!quoted.empty()) problem.append(1, '"').append(quoted).append("\" ");
        problem.append(what);
        return false;
    }

    // Classes of its characters are left in *held.
    std::string_view read_form(unsigned* held)
    {
        std::size_t begin = at;
        if (!done() && text[at] == '<') {
            std::size_t end = text.find_first_of("> \t()|", at);
            at = std::min(end, text.size());
            if (!done() && text[at] == '>') at++;
        } else {
            unsigned all = 0;
            const char* end = text.data() + at;
            for (unsigned one; ((one = class_of(*end)) & (SEPARATOR | GROUPING)) == 0; end++)
                all |= one;
            at = static_cast<std::size_t>(end - text.data());
            *held = all;
        }
        return text.substr(begin, at - begin);
    }

    bool add_form(bool in_group)
    {
        std::size_t begin = at;
        unsigned held = 0;
        std::string_view form = read_form(&held);
        if (form.empty()) return refuse(in_group ? "an alternative is empty" : "a word is missing");
        if (form.size() > MAX_FORM) return refuse("a word is too long");
        WordKind kind = WordKind::Keyword;
        if (const char* wrong = classify(form, held, &kind)) return refuse(wrong, form);
        tokens.push_back(
            {static_cast<std::uint16_t>(begin), static_cast<std::uint8_t>(form.size()), kind, in_group, !in_group});
        return true;
    }

    bool is_repeated(std::size_t first) const
    {
        std::string_view form = text.substr(tokens.back().offset, tokens.back().length);
        for (std::size_t i = first; i + 1 < tokens.size(); i++) {
            if (same_text(text.substr(tokens[i].offset, tokens[i].length), form)) return true;
        }
        return false;
    }

    bool add_group()
    {
        std::size_t first = tokens.size();
        do {
            at++; // '(' or '|'
            skip_separators();
            if (!done() && text[at] == '(') break;
            if (!add_form(true)) return false;
            if (is_repeated(first)) tokens.pop_back();
            skip_separators();
        } while (!done() && text[at] == '|');
        if (done()) return refuse("a group is not closed");
        if (text[at] == '(') return refuse("a group stands inside another");
        if (text[at] != ')') return refuse("a blank or tab parts an alternative");
        at++;
        tokens.back().last_of_word = true;
        return true;
    }

    bool parse()
    {
        for (;; words++) {
            skip_separators();
            if (done()) break;
            if (text[at] == '(') {
                if (!add_group()) return false;
            } else {
                if (text[at] == ')' || text[at] == '|') return refuse("')' or '|' stands outside a group");
                if (!add_form(false)) return false;
                if (!done() && !is_separator(text[at])) return refuse("a word is glued to what follows it");
            }
        }
        return words > 0 || refuse("there is no word");
    }
};

// The line of help with that number; null data when there are not so many.
std::string_view help_line(const char* doc, std::size_t number)
{
    const char* end = std::strchr(doc, '\n');
    for (; end != nullptr && number > 0; number--) {
        doc = end + 1;
        end = std::strchr(doc, '\n');
    }
    return end == nullptr ? std::string_view{} : std::string_view(doc, static_cast<std::size_t>(end - doc));
}

struct HelpPart {
    bool named = false;   // the text begins with "<alternative>:" or "<alternative>, <alternative>:"
    bool wanted = false;  // and the alternative that is asked for is among them
    std::size_t text = 0; // where its help begins
};

std::size_t behind_blanks(std::string_view line, std::size_t at)
{
    while (at < line.size() && line[at] == ' ')
        at++;
    return at;
}

// The alternative of the token's word that stands there before a colon or a comma; the end of the word if none does.
std::size_t alternative_at(const Grammar& grammar, std::string_view line, std::size_t at, std::size_t token)
{
    std::size_t end = grammar.after_word(token);
    for (std::size_t i = grammar.word_start(token); i < end; i++) {
        std::size_t behind = at + grammar.form(i).size();
        if (behind < line.size() && (line[behind] == ':' || line[behind] == ',') &&
            same_text(line.substr(at, grammar.form(i).size()), grammar.form(i)))
            return i;
    }
    return end;
}

// Help of the form "enable: it is on; disable, off: it is off" names its alternatives.
HelpPart part_at(const Grammar& grammar, std::string_view line, std::size_t at, std::size_t token)
{
    HelpPart part;
    for (;;) {
        std::size_t alternative = alternative_at(grammar, line, at, token);
        if (alternative == grammar.after_word(token)) return {};
        part.wanted = part.wanted || alternative == token;
        at += grammar.form(alternative).size();
        part.named = line[at] == ':';
        at = behind_blanks(line, at + 1);
        part.text = at;
        if (part.named) return part;
    }
}

// The part of the line that is about the alternative: the whole line, if it does not name it.
std::string_view part_about(const Grammar& grammar, std::string_view line, std::size_t token)
{
    std::string_view about = line;
    HelpPart part = part_at(grammar, line, 0, token);
    while (part.named) {
        std::size_t part_end = line.size();
        HelpPart next;
        for (std::size_t semicolon = line.find(';', part.text); semicolon != std::string_view::npos && !next.named;
             semicolon = line.find(';', semicolon + 1)) {
            next = part_at(grammar, line, behind_blanks(line, semicolon + 1), token);
            if (next.named) part_end = semicolon;
        }
        if (part.wanted) about = line.substr(part.text, part_end - part.text);
        part = next;
    }
    return about;
}

// The end of the help; null when it does not have one line for each word.
const char* help_end(const char* doc, std::size_t words)
{
    for (; words > 0; words--) {
        doc = std::strchr(doc, '\n');
        if (doc == nullptr) return nullptr;
        doc++;
    }
    return *doc == '\0' ? doc : nullptr;
}

bool parse_element(const cmd_element& element, std::vector<Token>& tokens, std::size_t* words, std::string* problem)
{
    if (element.string == nullptr || element.doc == nullptr) {
        *problem = "the grammar or its help is missing";
        return false;
    }
    std::string_view text = element.string;
    if (text.size() > MAX_TEXT) {
        *problem = "the grammar is too long";
        return false;
    }
    tokens.clear();
    Parser parser{text, tokens, 0, 0, {}};
    if (!parser.parse()) {
        *problem = parser.problem;
        return false;
    }
    *words = parser.words;
    const char* end = help_end(element.doc, parser.words);
    if (end == nullptr) {
        *problem = "the help does not have one line for each of the " + std::to_string(parser.words) + " words";
        return false;
    }
    if (static_cast<std::size_t>(end - element.doc) > MAX_TEXT) {
        *problem = "the help is too long";
        return false;
    }
    return true;
}

} // namespace

std::string_view Grammar::help(std::size_t index) const
{
    auto earlier_words = std::count_if(tokens(), tokens() + index, [](const Token& at) { return at.last_of_word; });
    std::string_view line = help_line(element->doc, static_cast<std::size_t>(earlier_words));
    return token(index).in_group ? part_about(*this, line, index) : line;
}

const Grammar* grammar_of(cmd_element* element, Origin origin, std::string* error)
{
    if (element->strvec != nullptr) return static_cast<const Grammar*>(element->strvec);

    // Never destroyed: elements and a parked console thread may outlive the end of main.
    static Storage& storage = *new Storage;
    static std::vector<Token>& tokens = *new std::vector<Token>;
    std::size_t words = 0;
    std::string problem;
    if (!parse_element(*element, tokens, &words, &problem)) {
        if (error != nullptr) {
            *error = "command \"" + std::string(element->string ? element->string : "") + "\": " + problem;
        }
        return nullptr;
    }
    std::byte* memory = storage.take(sizeof(Grammar) + tokens.size() * sizeof(Token));
    auto* grammar = new (memory) Grammar{element, element->string, static_cast<std::uint16_t>(tokens.size()),
                                         static_cast<std::uint16_t>(words), origin};
    std::memcpy(memory + sizeof(Grammar), tokens.data(), tokens.size() * sizeof(Token));
    element->strvec = grammar;
    element->cmdsize = static_cast<std::int32_t>(words);
    return grammar;
}

} // namespace engine
