// SPDX-License-Identifier: Apache-2.0
#include "REMOTE_MANAGEMENT_CLI/send_file_to_onu.h"

#include <sys/stat.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>

#include "event_lines.h"
#include "onu_devices_fixture.h"

namespace {

class RemoteSendFile : public OnuDevices {
  protected:
    RemoteSendFile()
    {
        char name[] = "/tmp/epon-files-XXXXXX";
        folder = mkdtemp(name);
    }
    ~RemoteSendFile() override
    {
        std::filesystem::remove_all(folder);
    }

    std::string write(const char* name, size_t size)
    {
        const std::string path = folder / name;
        std::ofstream(path, std::ios::binary) << std::string(size, 'x');
        return path;
    }
    std::string send(const std::string& name, const std::string& path)
    {
        return type("remote send-file-to-onu file-name " + name + " file-path " + path);
    }
    static std::string progress(int done, int total)
    {
        return "firmware-download-progress: olt 0, onu 5, bytes-done " + std::to_string(done) + ", bytes-total " +
               std::to_string(total) + " \r\n";
    }
    std::string state()
    {
        const std::string lines = type("show remote device-mgmt device-status");
        const size_t at = lines.find("file_transfer: ") + 15;
        return lines.substr(at, lines.find(' ', at) - at);
    }

    std::filesystem::path folder;
};

// OAM frames of 338 octets carry 300 octets of it, ten frames a second.
TEST_F(RemoteSendFile, FileGoesInOamFrames)
{
    EventLines events;
    const std::string path = write("config", 7000);
    journal();
    EXPECT_EQ(send("startup.cfg", path), "");
    EXPECT_EQ(result, 0);
    EXPECT_EQ(journal(), Calls{"REMOTE_NEPONU_send_file_to_onu(0, 5, \"startup.cfg\", \"" + path + "\") = 0"});
    EXPECT_EQ(state(), "running");
    EXPECT_EQ(events.after(999), "");
    EXPECT_EQ(events.after(1), progress(3000, 7000));
    EXPECT_EQ(events.after(2000), progress(6000, 7000) + progress(7000, 7000));
    EXPECT_EQ(state(), "complete");
    EXPECT_EQ(events.after(60000), "");
}

TEST_F(RemoteSendFile, FasterWithoutTheLimitOfSlowProtocols)
{
    EventLines events;
    type("remote oam-api slow-protocol-limit protocol disable");
    EXPECT_EQ(send("f", write("f", 30001)), "");
    EXPECT_EQ(events.after(2000), progress(30000, 30001) + progress(30001, 30001));
}

TEST_F(RemoteSendFile, ProgressCanBeSwitchedOff)
{
    EventLines events;
    type("remote device-mgmt event-configuration type image-burn event disable");
    EXPECT_EQ(send("f", write("f", 10)), "");
    EXPECT_EQ(events.after(1000), "");
    EXPECT_EQ(state(), "complete");
}

TEST_F(RemoteSendFile, FilesThatCannotBeSent)
{
    const std::string pipe = folder / "pipe";
    ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
    const std::string unreadable = failure("parameter error", -4);
    const std::string illegal_size = failure("illegal size", -13001);
    const std::pair<std::string, std::string> cases[] = {{folder / "missing", unreadable},
                                                         {folder, unreadable},
                                                         {pipe, unreadable},
                                                         {write("empty", 0), illegal_size},
                                                         {write("large", 1048577), illegal_size}};
    for (const auto& [path, message] : cases) {
        EXPECT_EQ(send("name", path), message) << path;
        EXPECT_EQ(result, 0);
    }
    EXPECT_EQ(state(), "none");
    EXPECT_EQ(send("name", write("largest", 1048576)), "");
}

TEST_F(RemoteSendFile, NamesThatAreNone)
{
    const std::string path = write("f", 1);
    const std::string longest(31, 'n');
    for (const std::string& name :
         {longest + "n", std::string("a/b"), std::string("."), std::string(".."), std::string("caf\xe9")})
        EXPECT_EQ(call(remote_send_file_to_onu, {name, path}), failure("parameter error", -4)) << name;
    for (const std::string& name : {std::string(), std::string("a b"), std::string("a\x1b")})
        EXPECT_EQ(call(remote_send_file_to_onu, {name, path}), failure("parameter error", -4)) << name;
    EXPECT_EQ(send(longest, path), "");
    EXPECT_EQ(REMOTE_NEPONU_send_file_to_onu(0, 5, nullptr, path.c_str()), -4);
    EXPECT_EQ(REMOTE_NEPONU_send_file_to_onu(0, 5, "f", nullptr), -4);
}

TEST_F(RemoteSendFile, OneFileAtATime)
{
    const std::string path = write("f", 9000);
    EXPECT_EQ(send("a", path), "");
    EXPECT_EQ(send("b", path), failure("no resources", -13006));
    EXPECT_EQ(result, 0);
    sdk_sim::advance_clock(3000);
    EXPECT_EQ(send("b", path), "");
}

TEST_F(RemoteSendFile, RestartEndsIt)
{
    EventLines events;
    EXPECT_EQ(send("a", write("f", 9000)), "");
    type("remote device-mgmt reset-device reason sw");
    EXPECT_EQ(events.after(60000).find("firmware-download-progress"), std::string::npos);
    EXPECT_EQ(state(), "none");
}

TEST_F(RemoteSendFile, NoMoreThanTheOnuHasRoomFor)
{
    enter_onu(254); // takes frames of 1518 octets
    type("remote oam-api slow-protocol-limit protocol disable");
    const std::string path = write("f", 1048576);
    for (const char* name : {"a", "b", "c", "d"}) {
        EXPECT_EQ(send(name, path), "") << name;
        sdk_sim::advance_clock(60000);
    }
    EXPECT_EQ(send("e", path), failure("memory error", -6));
    EXPECT_EQ(result, 0);
    EXPECT_EQ(send("a", path), ""); // in the place of the former one
}

TEST_F(RemoteSendFile, FailedCalls)
{
    expect_remote_failures("remote send-file-to-onu file-name f file-path " + write("f", 1),
                           "REMOTE_NEPONU_send_file_to_onu");
}

} // namespace
