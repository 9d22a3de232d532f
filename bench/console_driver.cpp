// SPDX-License-Identifier: Apache-2.0
// An automation client: sends lines to a console and counts answers.
//
//   console_driver PORT request SECONDS END    one line at a time; an answer is over when it ends in END. Prints the
//                                              lines that were answered in a second
//   console_driver PORT lines COUNT END        so many lines, one at a time
//   console_driver PORT paste COUNT            so many lines at once; an answer has one line end. Prints the same
//   console_driver PORT help SECONDS           "?" for all objects that can be shown, time after time
//
// Lines are those of commands.h. END is "\n" for a server that sends back what comes.
#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <string_view>
#include <vector>

#include <arpa/inet.h>
#include <netinet/in.h>
#include <netinet/tcp.h>
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

namespace {

using Clock = std::chrono::steady_clock;

[[noreturn]] void fail(const char* what)
{
    perror(what);
    exit(1);
}

double seconds_since(Clock::time_point start)
{
    return std::chrono::duration<double>(Clock::now() - start).count();
}

int connect_to(unsigned short port)
{
    int fd = socket(AF_INET, SOCK_STREAM, 0);
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    address.sin_port = htons(port);
    if (fd < 0 || connect(fd, reinterpret_cast<sockaddr*>(&address), sizeof address) != 0) fail("connect");
    int on = 1;
    setsockopt(fd, IPPROTO_TCP, TCP_NODELAY, &on, sizeof on);
    return fd;
}

// Lines that the server knows; the echo server takes anything.
std::string typed_line(unsigned number)
{
    constexpr const char* OBJECTS[] = {"pon-rate-0", "queue-depth-1", "vlan-mode-0", "optics-level-1", "link-limit-1"};
    return std::string("show ") + OBJECTS[number % 5] + ' ' + std::to_string(number % 1000) + "\r\n";
}

struct Client {
    int fd;
    std::string_view end;
    std::string tail{}; // the last bytes received

    void await_end()
    {
        char bytes[16384];
        do {
            ssize_t size = recv(fd, bytes, sizeof bytes, 0);
            if (size <= 0) fail("recv");
            std::string_view received(bytes, static_cast<std::size_t>(size));
            if (received.find('%') != received.npos) fail("a line was refused");
            tail.append(received);
            if (tail.size() > 64) tail.erase(0, tail.size() - 64);
        } while (!tail.ends_with(end));
        tail.clear();
    }

    void request(const std::string& line)
    {
        if (send(fd, line.data(), line.size(), MSG_NOSIGNAL) != static_cast<ssize_t>(line.size())) fail("send");
        await_end();
    }
};

std::vector<std::string> some_lines()
{
    std::vector<std::string> lines;
    for (unsigned i = 0; i < 1000; i++)
        lines.push_back(typed_line(i));
    return lines;
}

void request_for(Client& client, double seconds, long limit)
{
    const std::vector<std::string> lines = some_lines();
    long done = 0;
    Clock::time_point start = Clock::now();
    while ((limit == 0 || done < limit) && (limit > 0 || seconds_since(start) < seconds))
        client.request(lines[static_cast<std::size_t>(done++) % lines.size()]);
    printf("%.0f\n", static_cast<double>(done) / seconds_since(start));
}

// The line that stands there is erased with ^U; the list ends with it, behind a fresh prompt.
void help_for(Client& client, double seconds)
{
    client.end = "> show ";
    long done = 0;
    Clock::time_point start = Clock::now();
    for (; seconds_since(start) < seconds; done++)
        client.request("\x15show ?");
    printf("%.0f\n", static_cast<double>(done) / seconds_since(start));
}

void paste(int fd, unsigned count)
{
    std::string text;
    for (unsigned i = 0; i < count; i++)
        text += typed_line(i);
    unsigned answered = 0;
    std::size_t sent = 0;
    Clock::time_point start = Clock::now();
    while (answered < count) {
        short events = sent < text.size() ? POLLIN | POLLOUT : POLLIN;
        pollfd entry{fd, events, 0};
        if (poll(&entry, 1, 10000) <= 0) fail("the server is silent");
        if ((entry.revents & POLLOUT) != 0) {
            ssize_t size = send(fd, text.data() + sent, text.size() - sent, MSG_NOSIGNAL | MSG_DONTWAIT);
            if (size > 0) sent += static_cast<std::size_t>(size);
        }
        if ((entry.revents & ~POLLOUT) != 0) {
            char bytes[65536];
            ssize_t size = recv(fd, bytes, sizeof bytes, 0);
            if (size <= 0) fail("recv");
            std::string_view received(bytes, static_cast<std::size_t>(size));
            if (received.find('%') != received.npos) fail("a line was refused");
            answered += static_cast<unsigned>(std::count(received.begin(), received.end(), '\n'));
        }
    }
    printf("%.0f\n", count / seconds_since(start));
}

} // namespace

int main(int argc, char** argv)
{
    if (argc < 4) return 2;
    int fd = connect_to(static_cast<unsigned short>(atoi(argv[1])));
    std::string_view how = argv[2];
    std::string_view end = argc > 4 ? argv[4] : "> ";
    bool echo = end == "\n";
    Client client{fd, end};
    if (!echo) client.await_end(); // the greeting and the first prompt
    if (how == "paste")
        paste(fd, static_cast<unsigned>(atol(argv[3])));
    else if (how == "help")
        help_for(client, atof(argv[3]));
    else
        request_for(client, how == "request" ? atof(argv[3]) : 0, how == "request" ? 0 : atol(argv[3]));
    close(fd);
    return 0;
}
