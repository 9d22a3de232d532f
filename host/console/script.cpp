// SPDX-License-Identifier: Apache-2.0
#include "script.h"

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <optional>
#include <string_view>

#include "machine_link.h"
#include "password_prompt.h"

namespace console {

namespace {

std::string_view trimmed(std::string_view text)
{
    std::size_t from = text.find_first_not_of(" \t");
    if (from == std::string_view::npos) return {};
    return text.substr(from, text.find_last_not_of(" \t") + 1 - from);
}

void print_json(const Json& json)
{
    std::puts(json.dump(-1, ' ', true).c_str());
    std::fflush(stdout);
}

// What "| json" says of a failure; empty for any other output.
std::string message_of(const std::string& output)
{
    Json json = Json::parse(output, nullptr, false);
    Json error = json.is_object() ? json.value("error", Json()) : Json();
    return error.is_object() ? error.value("message", "") : "";
}

// Why a command failed, in one line: the last line that it printed, and the result if that says more.
std::string reason_of(const Json& answer)
{
    std::string output = answer.value("output", "");
    std::string reason = message_of(output);
    if (answer.value("truncated", false)) reason = "its output was too long and is not complete";
    if (reason.empty()) {
        std::size_t end = output.find_last_not_of(" \n");
        std::size_t from = end == std::string::npos ? 0 : output.find_last_of('\n', end) + 1;
        if (end != std::string::npos) reason = output.substr(from, end + 1 - from);
    }
    std::string result = std::to_string(answer.value("result", 0));
    if (result != "0" && reason.find(result) == std::string::npos)
        reason += (reason.empty() ? "result " : " (result ") + result + (reason.empty() ? "" : ")");
    return reason;
}

class Runner {
  public:
    Runner(int connection, const Script& script_)
        : script(script_), link(connection, script_.limit, [this](const Json& event) { show_event(event); })
    {
    }

    int run();

  private:
    bool walk();
    bool carry_out(const ScriptLine& line);
    std::optional<Json> ask(const std::string& line);
    bool answer_secrets(Json* answer);
    void show_answer(const ScriptLine& line, const std::string& before, const Json& answer) const;
    void show_event(const Json& event) const;
    void complain(const ScriptLine& line, const std::string& reason) const;

    const Script& script;
    MachineLink link;
    std::string prompt;
    std::string error;   // why there was no answer
    bool closed = false; // a command closed the session
    bool broken = false; // there can be no more answers
};

void Runner::complain(const ScriptLine& line, const std::string& reason) const
{
    std::string where = line.place.empty() ? "" : line.place + ": ";
    // Enough to know the command by; its line may be many pages long.
    constexpr std::size_t SHOWN = 160;
    const char* rest = line.text.size() > SHOWN ? "..." : "";
    std::fprintf(stderr, "epon-console: %s\"%.*s%s\": %s\n", where.c_str(), static_cast<int>(SHOWN), line.text.c_str(),
                 rest, reason.c_str());
}

void Runner::show_event(const Json& event) const
{
    if (script.json) {
        print_json(event);
        return;
    }
    std::puts(event.value("event", "").c_str());
    std::fflush(stdout);
}

void Runner::show_answer(const ScriptLine& line, const std::string& before, const Json& answer) const
{
    if (script.json) {
        Json shown;
        shown["command"] = line.text;
        if (!line.place.empty()) shown["place"] = line.place;
        for (const char* member : {"ok", "result", "output", "truncated", "prompt", "closed"})
            if (answer.contains(member)) shown[member] = answer[member];
        print_json(shown);
        return;
    }
    std::string output = answer.value("output", "");
    if (!output.empty() && output.back() != '\n') output += '\n';
    if (script.echo) output.insert(0, before + line.text + '\n');
    std::fwrite(output.data(), 1, output.size(), stdout);
    std::fflush(stdout);
}

// Passwords that the console asks for come from the operator, never from the script.
bool Runner::answer_secrets(Json* answer)
{
    while (answer->value("secret", false)) {
        std::string typed;
        if (!ask_operator(answer->value("prompt", ""), true, &typed, &error)) {
            error = "the console asks for a password, and " + error;
            return false;
        }
        std::optional<Json> next = link.ask(typed, &error);
        if (!next) return false;
        if (next->value("closed", false)) {
            error = reason_of(*next);
            return false;
        }
        if (!next->value("ok", false)) std::fprintf(stderr, "%s", next->value("output", "").c_str());
        // The line that asked has failed if the password has.
        *answer = *next;
    }
    return true;
}

std::optional<Json> Runner::ask(const std::string& line)
{
    std::optional<Json> answer = link.ask(line, &error);
    if (!answer || !answer_secrets(&*answer)) return {};
    closed = answer->value("closed", false);
    prompt = answer->value("prompt", prompt);
    return answer;
}

// Each step must lead to another place: a command for an OLT must never be carried out where no OLT was entered.
bool Runner::walk()
{
    for (const std::string& step : script.way) {
        ScriptLine line{step, "--node"};
        std::string before = prompt;
        std::optional<Json> answer = ask(step);
        if (answer && answer->value("ok", false) && !closed && prompt != before) continue;
        if (answer) show_answer(line, before, *answer);
        complain(line, !answer                      ? error
                       : answer->value("ok", false) ? "this leads to no other node"
                                                    : reason_of(*answer));
        return false;
    }
    return true;
}

bool Runner::carry_out(const ScriptLine& line)
{
    std::string before = prompt;
    std::optional<Json> answer = ask(line.text);
    if (!answer) {
        complain(line, error);
        broken = true;
        return false;
    }
    show_answer(line, before, *answer);
    if (answer->value("ok", false)) return true;
    complain(line, reason_of(*answer));
    return false;
}

int Runner::run()
{
    std::optional<Json> greeting = link.start(&error);
    if (!greeting || !answer_secrets(&*greeting)) {
        std::fprintf(stderr, "epon-console: %s\n", error.c_str());
        return EXIT_NOTHING;
    }
    prompt = greeting->value("prompt", "");
    if (!walk()) return EXIT_FAILED;
    bool good = true;
    for (const ScriptLine& line : script.lines) {
        if (closed) {
            complain(line, "not carried out: the session is closed");
            return EXIT_FAILED;
        }
        good &= carry_out(line);
        if (!good && (broken || !script.keep_going)) return EXIT_FAILED;
    }
    if (script.wait.count() > 0 && !closed && !link.follow(script.wait)) {
        std::fprintf(stderr, "epon-console: the console closed the session\n");
        return EXIT_FAILED;
    }
    return good ? 0 : EXIT_FAILED;
}

} // namespace

void add_lines(std::string_view text, const std::string& name, std::vector<ScriptLine>* lines)
{
    for (std::size_t number = 1; !text.empty(); ++number) {
        std::size_t end = std::min(text.find_first_of("\r\n"), text.size());
        std::string_view line = trimmed(text.substr(0, end));
        bool two_bytes = text.substr(end, 2) == "\r\n";
        text.remove_prefix(std::min(end + (two_bytes ? 2 : 1), text.size()));
        if (line.empty() || line[0] == '!' || line[0] == '#') continue;
        lines->push_back({std::string(line), name.empty() ? "" : name + ':' + std::to_string(number)});
    }
}

bool read_script(const std::string& path, std::vector<ScriptLine>* lines, std::string* error)
{
    std::FILE* file = path == "-" ? stdin : std::fopen(path.c_str(), "re");
    std::string name = path == "-" ? "standard input" : path;
    std::string text;
    char part[65536];
    bool good = file != nullptr;
    for (std::size_t size = 1; good && size > 0; good = std::ferror(file) == 0) {
        size = std::fread(part, 1, sizeof part, file);
        text.append(part, size);
    }
    if (!good) *error = name + ": " + std::strerror(errno);
    if (file != nullptr && file != stdin) std::fclose(file);
    add_lines(text, name, lines);
    return good;
}

std::vector<std::string> split_way(const std::string& text)
{
    std::vector<std::string> parts;
    for (std::size_t at = 0; at <= text.size();) {
        std::size_t end = std::min(text.find_first_of(";\r\n", at), text.size());
        std::string_view part = trimmed(std::string_view(text).substr(at, end - at));
        if (!part.empty()) parts.emplace_back(part);
        at = end + 1;
    }
    return parts;
}

int run_script(int connection, const Script& script)
{
    return Runner(connection, script).run();
}

} // namespace console
