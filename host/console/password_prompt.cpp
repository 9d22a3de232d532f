// SPDX-License-Identifier: Apache-2.0
#include "password_prompt.h"

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <fcntl.h>
#include <iostream>
#include <memory>
#include <poll.h>
#include <unistd.h>

#include <crypt.h>

#include "signals.h"
#include "terminal.h"

namespace console {

namespace {

constexpr char CTRL_C = 3, CTRL_D = 4, CTRL_H = 8, CTRL_U = 21, DEL = 127;
constexpr std::size_t ANSWER_SIZE = 512; // longest answer; crypt_r takes no longer password
constexpr char METHOD[] = "$y$";         // yescrypt

// The line that is being typed. False once it is complete or given up.
struct Answer {
    std::string text;
    bool given_up = false;

    bool take(char key)
    {
        if (key == '\r' || key == '\n') return false;
        if (key == CTRL_C || (key == CTRL_D && text.empty())) {
            given_up = true;
            return false;
        }
        if (key == CTRL_U) text.clear();
        if ((key == CTRL_H || key == DEL) && !text.empty()) text.pop_back();
        bool printable = static_cast<unsigned char>(key) >= ' ' && key != DEL;
        if (printable && text.size() < ANSWER_SIZE - 1) text += key;
        return true;
    }
};

void write_text(int terminal, const std::string& text)
{
    if (write(terminal, text.data(), text.size()) < 0) return; // then there is nobody to ask
}

void read_answer(int terminal, const std::string& prompt, bool secret, Answer* answer)
{
    sigset_t waiting = take_signals();
    RawTerminal raw(terminal);
    write_text(terminal, prompt);
    for (char key = 0; ending_signal() == 0;) {
        pollfd wait{terminal, POLLIN, 0};
        if (ppoll(&wait, 1, nullptr, &waiting) < 0) continue;
        if (read(terminal, &key, 1) != 1) key = CTRL_C; // the terminal is gone
        bool goes_on = answer->take(key);
        // The whole line anew is simple, and right for every key.
        if (!secret) write_text(terminal, "\r\x1b[K" + prompt + answer->text);
        if (!goes_on) break;
    }
    write_text(terminal, "\r\n");
}

// The hash, or an empty text.
std::string hash_of(const std::string& password)
{
    char setting[CRYPT_GENSALT_OUTPUT_SIZE];
    if (crypt_gensalt_rn(METHOD, 0, nullptr, 0, setting, sizeof setting) == nullptr) return {};
    auto data = std::make_unique<crypt_data>();
    const char* hash = crypt_r(password.c_str(), setting, data.get());
    std::string text = hash == nullptr || hash[0] == '*' ? "" : hash;
    explicit_bzero(data.get(), sizeof *data);
    return text;
}

bool read_twice(std::string* password, std::string* error)
{
    std::string again;
    if (!ask_operator("Password: ", true, password, error) || !ask_operator("Once more: ", true, &again, error))
        return false;
    bool same = *password == again;
    explicit_bzero(again.data(), again.size());
    if (!same) *error = "the two passwords differ";
    return same;
}

bool read_piped(std::string* password, std::string* error)
{
    if (!std::getline(std::cin, *password)) {
        *error = "no password on standard input";
        return false;
    }
    if (!password->empty() && password->back() == '\r') password->pop_back();
    return true;
}

} // namespace

bool ask_operator(const std::string& prompt, bool secret, std::string* answer, std::string* error)
{
    int terminal = open("/dev/tty", O_RDWR | O_CLOEXEC);
    if (terminal < 0) {
        *error = "there is no terminal to ask at";
        return false;
    }
    Answer typed;
    read_answer(terminal, prompt, secret, &typed);
    close(terminal);
    if (ending_signal() != 0) end_by_signal(ending_signal());
    if (typed.given_up) *error = "given up";
    *answer = typed.text;
    explicit_bzero(typed.text.data(), typed.text.size());
    return !typed.given_up;
}

int hash_password()
{
    std::string password, error, hash;
    bool good = isatty(STDIN_FILENO) != 0 ? read_twice(&password, &error) : read_piped(&password, &error);
    if (good && password.empty()) error = "an empty password is none";
    if (good && password.size() >= ANSWER_SIZE) error = "a password has at most 511 bytes";
    if (error.empty()) {
        hash = hash_of(password);
        if (hash.empty()) error = "this system cannot make a yescrypt hash";
    }
    explicit_bzero(password.data(), password.size());
    if (!error.empty()) {
        std::fprintf(stderr, "epon-console: %s\n", error.c_str());
        return 1;
    }
    std::puts(hash.c_str());
    return 0;
}

} // namespace console
