// SPDX-License-Identifier: Apache-2.0
// A users file holds one user per line, "name:role:hash"; blank lines and lines that begin with '#' are skipped. Since
// a hash can be guessed at leisure, the file must belong to root or to the host's own user, be writable by nobody else,
// and be readable by its owner and group only.
#include "host/engine/users.h"

#include <cerrno>
#include <cstring>
#include <fstream>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include "host/engine/password_hash.h"

namespace engine {
namespace {

constexpr off_t FILE_LIMIT = 1024 * 1024;
constexpr std::size_t NAME_LIMIT = 32;
constexpr mode_t FOREIGN_RIGHTS = S_IWGRP | S_IXGRP | S_IRWXO;

struct RoleName {
    const char* name;
    Role role;
};
constexpr RoleName role_names[] = {{"monitor", Role::Monitor}, {"operator", Role::Operator}, {"admin", Role::Admin}};

bool read_role(const std::string& text, Role* role)
{
    for (const RoleName& row : role_names) {
        if (text != row.name) continue;
        *role = row.role;
        return true;
    }
    return false;
}

bool is_user_name(const std::string& text)
{
    constexpr const char* USUAL = "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789_.-";
    return !text.empty() && text.size() <= NAME_LIMIT && text.find_first_not_of(USUAL) == std::string::npos &&
           text[0] != '-' && text[0] != '.';
}

std::string why_not_private(const struct stat& status)
{
    if (!S_ISREG(status.st_mode)) return "it is not a plain file";
    if (status.st_uid != 0 && status.st_uid != geteuid()) return "it belongs to another user";
    if ((status.st_mode & FOREIGN_RIGHTS) != 0) return "others may use it (chmod 600 is right)";
    if (status.st_size > FILE_LIMIT) return "it is too large";
    return {};
}

// What is checked is what is read: one descriptor serves both.
bool read_private_file(const std::string& path, std::string* text, std::string* error)
{
    int fd = open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY);
    struct stat status {};
    std::string reason;
    if (fd < 0 || fstat(fd, &status) != 0) {
        reason = strerror(errno);
    } else {
        reason = why_not_private(status);
    }
    char bytes[4096];
    ssize_t size = 0;
    while (reason.empty() && (size = read(fd, bytes, sizeof bytes)) > 0)
        text->append(bytes, static_cast<std::size_t>(size));
    if (reason.empty() && size < 0) reason = strerror(errno);
    if (fd >= 0) close(fd);
    if (!reason.empty()) *error = path + ": " + reason;
    return reason.empty();
}

std::string without_line_end(std::string line)
{
    while (!line.empty() && (line.back() == '\r' || line.back() == ' ' || line.back() == '\t'))
        line.pop_back();
    return line;
}

// Adds the user of one line. Says what is wrong with it, or nothing.
std::string add_user(const std::string& line, std::vector<User>* users)
{
    std::size_t name_end = line.find(':');
    std::size_t role_end = name_end == std::string::npos ? name_end : line.find(':', name_end + 1);
    if (role_end == std::string::npos) return "expected name:role:hash";
    User user{line.substr(0, name_end), Role::Monitor, line.substr(role_end + 1)};
    if (!is_user_name(user.name)) return "a name has 1 to 32 letters, digits, '_', '.' and '-'";
    if (!read_role(line.substr(name_end + 1, role_end - name_end - 1), &user.role))
        return "the role is none of monitor, operator, admin";
    if (!is_password_hash(user.hash)) return "the hash is none (make one with epon-console --hash-password)";
    for (const User& other : *users)
        if (other.name == user.name) return "the name occurs twice";
    users->push_back(user);
    return {};
}

bool load_users(const std::string& path, std::vector<User>* users, std::string* error)
{
    std::string text;
    if (!read_private_file(path, &text, error)) return false;
    int number = 0;
    for (std::size_t at = 0; at < text.size();) {
        std::size_t end = std::min(text.find('\n', at), text.size());
        std::string line = without_line_end(text.substr(at, end - at));
        at = end + 1;
        ++number;
        if (line.empty() || line[0] == '#') continue;
        std::string reason = add_user(line, users);
        if (reason.empty()) continue;
        *error = path + ":" + std::to_string(number);
        error->append(": ").append(reason);
        return false;
    }
    if (users->empty()) *error = path + ": it names no user";
    return !users->empty();
}

// The first line of a file that holds one hash.
bool load_hash(const char* what, const std::string& path, std::string* hash, std::string* error)
{
    std::ifstream file(path);
    std::string line;
    if (!file) {
        *error = std::string(what) + " file " + path + ": " + strerror(errno);
        return false;
    }
    getline(file, line);
    line = without_line_end(line);
    if (!is_password_hash(line)) {
        *error = std::string(what) + " file " + path +
                 ": its first line is no crypt(3) hash (make one with epon-console --hash-password)";
        return false;
    }
    *hash = line;
    return true;
}

} // namespace

const char* role_name(Role role)
{
    for (const RoleName& row : role_names)
        if (row.role == role) return row.name;
    return "?";
}

const User* Credentials::find(const std::string& name) const
{
    for (const User& user : users)
        if (user.name == name) return &user;
    return nullptr;
}

std::shared_ptr<const Credentials> load_credentials(const Options& options, std::string* error)
{
    auto loaded = std::make_shared<Credentials>();
    if (!options.users_file.empty() && !options.password_file.empty()) {
        *error = "a users file and a password file exclude each other";
        return nullptr;
    }
    if (!options.users_file.empty() && !load_users(options.users_file, &loaded->users, error)) return nullptr;
    if (!options.password_file.empty() && !load_hash("password", options.password_file, &loaded->password_hash, error))
        return nullptr;
    if (!options.enable_password_file.empty() &&
        !load_hash("enable password", options.enable_password_file, &loaded->enable_hash, error))
        return nullptr;
    // Any password but the right one takes the same effort: nothing tells an unknown name from a known one.
    if (!loaded->users.empty()) loaded->nobody_hash = loaded->users.front().hash;
    return loaded;
}

} // namespace engine
