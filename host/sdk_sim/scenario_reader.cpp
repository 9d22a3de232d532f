// SPDX-License-Identifier: Apache-2.0
#include "host/sdk_sim/scenario_reader.h"

#include <charconv>
#include <cmath>
#include <cstdio>

#define TOML_EXCEPTIONS 0
#include <toml++/toml.h>

#include "host/sdk_sim/text_number.h"

namespace sdk_sim {

namespace {

const toml::table& as_table(const void* table)
{
    return *static_cast<const toml::table*>(table);
}

const toml::node* as_node(const void* node)
{
    return static_cast<const toml::node*>(node);
}

std::string range(std::int64_t min, std::int64_t max)
{
    return "a number " + std::to_string(min) + "-" + std::to_string(max);
}

// "12" or "47.5": no more digits than an operator would write.
std::string print_real(double value)
{
    char digits[32];
    std::snprintf(digits, sizeof(digits), "%.6g", value);
    return digits;
}

void note(ScenarioErrors* errors, const toml::source_region& source, const std::string& text)
{
    if (errors->first.empty()) errors->first = errors->file + ':' + std::to_string(source.begin.line) + ": " + text;
}

// A string as it is, or the octets of an array. False when it is neither.
bool read_text(const toml::node& node, std::string* text)
{
    if (const auto* string = node.as_string()) {
        *text = string->get();
        return true;
    }
    const toml::array* array = node.as_array();
    if (array == nullptr) return false;
    text->clear();
    for (const toml::node& element : *array) {
        const auto octet = element.value_exact<std::int64_t>();
        if (!octet || *octet < 1 || *octet > 255) return false;
        *text += static_cast<char>(*octet);
    }
    return true;
}

constexpr char TEXT_EXPECTATION[] = "a string, or an array of octets 1-255";

} // namespace

const void* ScenarioReader::find(std::string_view key)
{
    known_keys.emplace(key);
    return as_table(table).get(key);
}

bool ScenarioReader::has(std::string_view key) const
{
    return as_table(table).contains(key);
}

void ScenarioReader::refuse(std::string_view key, const std::string& expected)
{
    const toml::node* node = as_table(table).get(key);
    note(errors, node == nullptr ? as_table(table).source() : node->source(),
         std::string(key) + ": expected " + expected);
}

void ScenarioReader::finish()
{
    for (const auto& [key, value] : as_table(table)) {
        if (known_keys.contains(key.str())) continue;
        std::string expected;
        for (const std::string& known : known_keys)
            expected += (expected.empty() ? "" : ", ") + known;
        note(errors, key.source(), "unknown key \"" + std::string(key.str()) + "\"; expected one of " + expected);
    }
}

bool ScenarioReader::integer(std::string_view key, std::int64_t min, std::int64_t max, std::int64_t* value)
{
    const toml::node* node = as_node(find(key));
    if (node == nullptr) return false;
    const auto read = node->value_exact<std::int64_t>();
    if (!read || *read < min || *read > max) {
        refuse(key, range(min, max));
        return false;
    }
    *value = *read;
    return true;
}

bool ScenarioReader::boolean(std::string_view key, bool* value)
{
    const toml::node* node = as_node(find(key));
    if (node == nullptr) return false;
    const auto read = node->value_exact<bool>();
    if (!read) {
        refuse(key, "true or false");
        return false;
    }
    *value = *read;
    return true;
}

bool ScenarioReader::one_of(std::string_view key, const ScenarioWord* words, std::size_t count, std::int32_t* value)
{
    const toml::node* node = as_node(find(key));
    if (node == nullptr) return false;
    const auto read = node->value_exact<std::string_view>();
    std::string expected;
    for (std::size_t i = 0; i < count; ++i) {
        if (read && *read == words[i].word) {
            *value = words[i].value;
            return true;
        }
        expected += (i == 0 ? "\"" : ", \"") + std::string(words[i].word) + '"';
    }
    refuse(key, "one of " + expected);
    return false;
}

void ScenarioReader::real(std::string_view key, double min, double max, double* value)
{
    const toml::node* node = as_node(find(key));
    if (node == nullptr) return;
    const auto read = node->value<double>();
    if (!node->is_number() || !read || !(*read >= min && *read <= max)) {
        refuse(key, "a number " + print_real(min) + " to " + print_real(max));
        return;
    }
    *value = *read;
}

void ScenarioReader::fixed_point(std::string_view key, int decimals, std::int64_t min, std::int64_t max,
                                 std::int32_t* value)
{
    const double scale = std::pow(10, decimals);
    double read = *value / scale;
    real(key, static_cast<double>(min) / scale, static_cast<double>(max) / scale, &read);
    *value = static_cast<std::int32_t>(std::lround(read * scale));
}

void ScenarioReader::seconds(std::string_view key, Milliseconds* value)
{
    constexpr double YEAR = 365.0 * 86400;
    double read = static_cast<double>(*value) / 1000;
    real(key, 0, YEAR, &read);
    *value = static_cast<Milliseconds>(std::llround(read * 1000));
}

void ScenarioReader::text(std::string_view key, std::size_t max_length, std::string* value)
{
    const toml::node* node = as_node(find(key));
    if (node == nullptr) return;
    std::string read;
    if (!read_text(*node, &read))
        refuse(key, TEXT_EXPECTATION);
    else if (read.size() > max_length)
        refuse(key, "at most " + std::to_string(max_length) + " octets");
    else
        *value = std::move(read);
}

void ScenarioReader::texts(std::string_view key, std::vector<std::string>* values)
{
    const toml::node* node = as_node(find(key));
    if (node == nullptr) return;
    const toml::array* array = node->as_array();
    std::vector<std::string> read;
    if (array == nullptr) {
        refuse(key, "an array of texts");
        return;
    }
    for (const toml::node& element : *array) {
        if (!read_text(element, &read.emplace_back())) {
            note(errors, element.source(), std::string(key) + ": expected " + TEXT_EXPECTATION);
            return;
        }
    }
    *values = std::move(read);
}

void ScenarioReader::mac(std::string_view key, Mac* value)
{
    const toml::node* node = as_node(find(key));
    if (node == nullptr) return;
    const auto text = node->value_exact<std::string_view>();
    Mac read{};
    bool is_mac = text && text->size() == 17;
    for (std::size_t i = 0; is_mac && i < read.size(); ++i) {
        const char* digits = text->data() + 3 * i;
        const auto [end, error] = std::from_chars(digits, digits + 2, read[i], 16);
        is_mac = error == std::errc() && end == digits + 2 && (i == 5 || *end == '-');
    }
    if (!is_mac)
        refuse(key, "a MAC address \"aa-bb-cc-dd-ee-ff\"");
    else
        *value = read;
}

void ScenarioReader::version(std::string_view key, OLT_version* value)
{
    const toml::node* node = as_node(find(key));
    if (node == nullptr) return;
    std::string_view text = node->value_exact<std::string_view>().value_or("");
    OLT_version read{};
    bool is_version = true;
    for (int i = 0; i < 4 && is_version; ++i) {
        const std::string_view number = text.substr(0, text.find('.'));
        text.remove_prefix(std::min(text.size(), number.size() + 1));
        is_version = !number.empty() && read_number(number, &read.number[i]);
    }
    if (!is_version || !text.empty())
        refuse(key, "four numbers 0-65535 with dots between: \"4.1.0.7\"");
    else
        *value = read;
}

bool ScenarioReader::pairs(std::string_view key, std::uint32_t max_first, std::uint32_t max_second,
                           const char* expected, std::vector<std::pair<std::uint32_t, std::uint32_t>>* values)
{
    const toml::node* node = as_node(find(key));
    if (node == nullptr) return false;
    const toml::array* rows = node->as_array();
    if (rows == nullptr) {
        refuse(key, std::string("an array of ") + expected);
        return false;
    }
    for (const toml::node& row : *rows) {
        std::int64_t pair[2] = {-1, -1};
        const toml::array* cells = row.as_array();
        for (std::size_t i = 0; cells != nullptr && cells->size() == 2 && i < 2; ++i)
            pair[i] = cells->get(i)->value_exact<std::int64_t>().value_or(-1);
        if (pair[0] < 0 || pair[0] > max_first || pair[1] < 0 || pair[1] > max_second) {
            note(errors, row.source(), std::string(key) + ": expected " + expected);
            return false;
        }
        values->emplace_back(static_cast<std::uint32_t>(pair[0]), static_cast<std::uint32_t>(pair[1]));
    }
    return true;
}

void ScenarioReader::registers(std::string_view key, std::map<std::uint32_t, std::uint32_t>* values)
{
    std::vector<std::pair<std::uint32_t, std::uint32_t>> read;
    if (!pairs(key, UINT32_MAX, UINT32_MAX, "[address, value], each 0-0xffffffff", &read)) return;
    values->clear();
    for (const auto& [address, value] : read)
        (*values)[address] = value;
}

void ScenarioReader::oui_versions(std::string_view key, std::vector<CTC_oui_version>* values)
{
    std::vector<std::pair<std::uint32_t, std::uint32_t>> read;
    if (!pairs(key, 0xFFFFFF, 255, "[OUI, version], 0-0xffffff and 0-255", &read)) return;
    values->clear();
    for (const auto& [oui, version] : read)
        values->push_back(oui_version(oui, static_cast<std::uint8_t>(version)));
}

std::vector<ScenarioReader> ScenarioReader::tables(std::string_view key)
{
    const toml::node* node = as_node(find(key));
    if (node == nullptr) return {};
    std::vector<ScenarioReader> readers;
    if (const toml::table* one = node->as_table()) {
        readers.emplace_back(one, errors);
    } else if (const toml::array* array = node->as_array(); array != nullptr && array->is_array_of_tables()) {
        for (const toml::node& element : *array)
            readers.emplace_back(element.as_table(), errors);
    } else {
        refuse(key, "a table");
    }
    return readers;
}

std::shared_ptr<const void> parse_scenario(std::string_view toml, ScenarioErrors* errors)
{
    toml::parse_result result = toml::parse(toml);
    if (!result) {
        note(errors, result.error().source(), std::string(result.error().description()));
        return nullptr;
    }
    return std::make_shared<const toml::table>(std::move(result).table());
}

} // namespace sdk_sim
