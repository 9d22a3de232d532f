// SPDX-License-Identifier: Apache-2.0
#include "olt/send_frame.h"

#include "files_fixture.h"

namespace {

class SendFrame : public Files {
  protected:
    SendFrame()
    {
        enter(OLT_NODE);
        path = write("frame", FRAME);
    }

    std::string send(const std::string& words)
    {
        return type("send-frame destination-port " + words);
    }

    inline static const std::string FRAME = "0123456789abcdef";
    static constexpr const char* SHOWN = "{octets=30313233343536373839616263646566,size=16}";
    std::string path;
};

constexpr const char* FOUND = "Mac_address_exist(0, 02-00-00-00-00-05) = 1 -> 5";

TEST_F(SendFrame, EveryForm)
{
    const std::string file = "file " + path;
    const std::string memory = "memory address 0x100 size 64";
    const std::string mac = "llid-mac-address 02-00-00-00-00-05 ";
    const std::string octets = SHOWN;
    const std::string stored = "{address=256,size=64}";
    struct Source {
        std::string words;
        std::string shown;
        bool is_file;
    };
    for (const Source& source : {Source{file, octets, true}, Source{memory, stored, false}}) {
        struct Case {
            std::string words;
            std::string call;
            bool by_mac;
        };
        // Two of the grammars spell the port otherwise.
        const std::string sniff = source.is_file ? "sts-sniff " : "sys-sniff ";
        const Case cases[] = {
            {"pon 5 " + source.words, "NEP_send_frame(0, 0, 5, " + source.shown + ") = 0", false},
            {"pon 5 all-1G-llid " + source.words, "NEP_send_frame_ext(0, 0, 5, 1, " + source.shown + ", 0) = 0", false},
            {"pon 5 " + source.words + " encrypt yes", "NEP_send_frame_ext(0, 0, 5, 0, " + source.shown + ", 1) = 0",
             false},
            {"pon 5 " + source.words + " encrypt no", "NEP_send_frame_ext(0, 0, 5, 0, " + source.shown + ", 0) = 0",
             false},
            {"pon 5 all-10G-llid " + source.words + " encrypt yes",
             "NEP_send_frame_ext(0, 0, 5, 2, " + source.shown + ", 1) = 0", false},
            {sniff + mac + source.words, "NEP_send_frame(0, 4, 5, " + source.shown + ") = 0", true},
            {"pon " + mac + "anti-llid " + source.words, "NEP_send_frame_ext(0, 0, 5, 3, " + source.shown + ", 0) = 0",
             true},
            {sniff + mac + source.words + " encrypt yes", "NEP_send_frame_ext(0, 4, 5, 0, " + source.shown + ", 1) = 0",
             true},
            {"pon " + mac + "anti-llid " + source.words + " encrypt no",
             "NEP_send_frame_ext(0, 0, 5, 3, " + source.shown + ", 0) = 0", true},
        };
        for (const Case& test : cases) {
            EXPECT_EQ(send(test.words), "") << test.words;
            EXPECT_EQ(result, 0);
            EXPECT_EQ(journal(), test.by_mac ? (Calls{FOUND, test.call}) : Calls{test.call});
        }
    }
}

TEST_F(SendFrame, Ports)
{
    const char* const ports[] = {"pon",           "system", "sniff",       "sys-pon",     "sys-sniff",
                                 "sys-pon-sniff", "auto",   "auto-no-all", "auto-no-pon", "auto-no-sys"};
    int code = 0;
    for (const char* port : ports) {
        EXPECT_EQ(send(std::string(port) + " llid-not-relevant file " + path), "") << port;
        EXPECT_EQ(journal(), Calls{"NEP_send_frame(0, " + std::to_string(code) + ", -1, " + SHOWN + ") = 0"});
        ++code;
    }
}

// A file may have any name, and as many words may stand before it as behind it.
TEST_F(SendFrame, OptionsAreToldApartByTheirKeywords)
{
    const std::filesystem::path before = std::filesystem::current_path();
    std::filesystem::current_path(folder);
    for (const char* name : {"encrypt", "anti-llid", "yes"}) {
        write(name, FRAME);
        EXPECT_EQ(send(std::string("pon 5 file ") + name), "");
        EXPECT_EQ(send(std::string("pon 5 anti-llid file ") + name), "");
        EXPECT_EQ(send(std::string("pon 5 file ") + name + " encrypt yes"), "");
        EXPECT_EQ(send(std::string("pon 5 anti-llid file ") + name + " enc yes"), "");
        const std::string shown = SHOWN;
        EXPECT_EQ(journal(), (Calls{"NEP_send_frame(0, 0, 5, " + shown + ") = 0",
                                    "NEP_send_frame_ext(0, 0, 5, 3, " + shown + ", 0) = 0",
                                    "NEP_send_frame_ext(0, 0, 5, 0, " + shown + ", 1) = 0",
                                    "NEP_send_frame_ext(0, 0, 5, 3, " + shown + ", 1) = 0"}))
            << name;
    }
    std::filesystem::current_path(before);
}

TEST_F(SendFrame, FilesThatCannotBeLoaded)
{
    for (const std::string& name : {std::string(folder), path + "-absent"}) {
        for (const char* link : {"5", "llid-mac-address 02-00-00-00-00-05"}) {
            for (const char* options : {"", " encrypt yes"}) {
                EXPECT_EQ(send(std::string("pon ") + link + " file " + name + options), CANNOT_OPEN);
                EXPECT_EQ(result, -1);
            }
        }
    }
    for (const std::string& call : journal())
        EXPECT_EQ(call, FOUND);
}

TEST_F(SendFrame, SizesAreTheDevicesToRefuse)
{
    const std::pair<size_t, bool> sizes[] = {{0, false}, {13, false}, {14, true}, {2000, true}, {2001, false}};
    for (const auto& [size, is_sent] : sizes) {
        const std::string file = write("sized", std::string(size, 'x'));
        const std::string source = "memory address 0 size " + std::to_string(size);
        for (const std::string& words : {"file " + file, "file " + file + " encrypt no", source}) {
            EXPECT_EQ(send("pon 5 " + words), is_sent ? "" : BAD_PARAMETER) << words;
            EXPECT_EQ(result, is_sent ? 0 : -4);
        }
    }
    EXPECT_EQ(journal().size(), 15u);
    EXPECT_EQ(send("pon 5 memory address 0x3FFFFF0 size 16"), "");
    for (const char* address : {"0x3FFFFF1", "0xffffffff"}) {
        EXPECT_EQ(send(std::string("pon 5 memory address ") + address + " size 16"), BAD_PARAMETER);
        EXPECT_EQ(result, -4);
    }
}

TEST_F(SendFrame, Links)
{
    struct Case {
        std::string words;
        std::string message;
        int result;
    };
    const std::string memory = " memory address 0 size 64";
    const Case cases[] = {
        {"x" + memory, "Error reading LLID_INDEX parameter for command from input, aborting\r\n", -1},
        {"32768" + memory,
         "Error in range of LLID_INDEX parameter for command from input min:-32767 max:32767, aborting\r\n", -1},
        {"llid-mac-address 5" + memory, "Error reading MAC address parameter from the MAC address string, aborting\r\n",
         -1},
        {"llid-mac-address 02-00-00-00-00-055" + memory, "Error reading mac_address has wrong length, aborting\r\n",
         -1},
        {"llid-mac-address 02-00-00-00-00-99" + memory, "There is no 02-00-00-00-00-99 mac address in the system\r\n",
         0},
        {"6" + memory, NO_ONU, -1007},
        {"255" + memory, NO_ONU, -1007},
        {"-2" + memory, NO_ONU, -1007},
        {"4095" + memory, "", 0},
        {"-1" + memory, "", 0},
    };
    for (const Case& test : cases) {
        EXPECT_EQ(send("pon " + test.words), test.message) << test.words;
        EXPECT_EQ(result, test.result);
    }
    EXPECT_EQ(send("pon x file " + path), cases[0].message);
    EXPECT_EQ(result, -1);
    EXPECT_EQ(send("pon llid-mac-address 5 file " + path), cases[2].message);
    EXPECT_EQ(result, -1);
}

TEST_F(SendFrame, Words)
{
    const std::string read = "Error reading ";
    const std::string port = read + "destination_port parameter (of the type destination_port), aborting\r\n";
    struct Case {
        cmd_handler* handler;
        std::vector<std::string> words;
        std::string message;
        const char* line = "";
    };
    const Case cases[] = {
        {send_frame, {"uplink", "5", path}, port},
        {send_frame_mac, {"uplink", "02-00-00-00-00-05", path}, port},
        {send_frame_memory, {"", "5", "0", "64"}, port},
        {send_frame_memory_mac, {"pons", "02-00-00-00-00-05", "0", "64"}, port},
        {send_frame,
         {"pon", "5", "no-llid", path},
         read + "llid_class parameter (of the type llid_class), aborting\r\n"},
        {send_frame,
         {"pon", "5", "no-llid", path, "yes"},
         read + "llid_class parameter (of the type llid_class), aborting\r\n"},
        {send_frame,
         {"pon", "5", path, "maybe"},
         read + "encrypt parameter (of the type encrypt), aborting\r\n",
         "send-frame destination-port pon 5 file x encrypt maybe"},
        {send_frame_memory,
         {"pon", "5", "anti-llid", "0", "64", "maybe"},
         read + "encrypt parameter (of the type encrypt), aborting\r\n"},
        {send_frame_memory,
         {"pon", "5", "x", "64"},
         read + "MEMORY_ADDRESS parameter for command from input, aborting\r\n"},
        {send_frame_memory,
         {"pon", "5", "0x100000000", "64"},
         read + "MEMORY_ADDRESS parameter for command from input, aborting\r\n"},
        {send_frame_memory,
         {"pon", "5", "-1", "64"},
         read + "negative value of MEMORY_ADDRESS parameter from input, aborting\r\n"},
        {send_frame_memory_mac,
         {"pon", "02-00-00-00-00-05", "0", "x"},
         read + "SIZE parameter for command from input, aborting\r\n"},
        {send_frame_memory,
         {"pon", "5", "0", "65536"},
         "Error in range of SIZE parameter for command from input min:0 max:65535, aborting\r\n"},
        {send_frame_memory,
         {"pon", "5", "0", "-1"},
         read + "negative value of SIZE parameter from input, aborting\r\n"},
    };
    for (const Case& test : cases) {
        session->buf = test.line;
        EXPECT_EQ(call(test.handler, test.words), test.message);
        EXPECT_EQ(result, -1);
    }
    session->buf = nullptr;
    EXPECT_EQ(journal(), Calls{});
}

TEST_F(SendFrame, LoopedPortsReturnFrames)
{
    EventLines events;
    const std::string received = "ethernet-frame-received: olt 0, llid ";
    const std::string frame = ", length 16, frame 30313233343536373839616263646566 \r\n";
    const std::string from_pon = received + "5, port pon" + frame;
    const std::string from_system = received + "-1, port system" + frame;
    struct Case {
        const char* loopback;
        const char* port;
        std::string told;
    };
    const Case cases[] = {
        {"test loopback type pon-mac", "pon", from_pon},
        {"test loopback type pon-phy", "sys-pon", from_pon},
        {"test loopback type system-mac", "pon", ""},
        {"test loopback type system-phy", "sys-pon-sniff", from_system},
        {"test loopback type sniff", "sys-pon-sniff", ""},
        {"no test loopback", "pon", ""},
    };
    for (const Case& test : cases) {
        type(test.loopback);
        events.after();
        EXPECT_EQ(send(std::string(test.port) + " 5 file " + path), "");
        EXPECT_EQ(events.after(), test.told) << test.loopback;
    }
    type("test loopback type pon-mac");
    events.after();
    send("pon 5 memory address 0x1fe size 14");
    EXPECT_EQ(events.after(), received + "5, port pon, length 14, frame feff000102030405060708090a0b \r\n");
}

// Only the PON has links.
TEST_F(SendFrame, ClassesOfLinksNeedThePon)
{
    EXPECT_EQ(send("system llid-not-relevant anti-llid file " + path), BAD_PARAMETER);
    EXPECT_EQ(result, -4);
    EXPECT_EQ(send("sys-pon llid-not-relevant anti-llid file " + path), "");
    EXPECT_EQ(result, 0);
}

TEST_F(SendFrame, Failures)
{
    for (const std::string& source : {"file " + path, std::string("memory address 0 size 64")}) {
        for (const char* link : {"5", "llid-mac-address 02-00-00-00-00-05"}) {
            const std::string words = std::string("pon ") + link + " " + source;
            inject("NEP_send_frame", -5);
            EXPECT_EQ(send(words), HARDWARE);
            EXPECT_EQ(result, -5);
            inject("NEP_send_frame_ext", -10);
            EXPECT_EQ(send(words + " encrypt yes"),
                      "Command return error.\r\nno credit due to rate limit (error code : -10)\r\n");
            EXPECT_EQ(result, -10);
        }
        enter(OLT_NODE, 1);
        EXPECT_EQ(send("pon 5 " + source), NO_OLT);
        EXPECT_EQ(result, -1003);
        EXPECT_EQ(send("pon 5 anti-llid " + source + " encrypt no"), NO_OLT);
        EXPECT_EQ(result, -1003);
        enter(OLT_NODE);
    }
}

} // namespace
