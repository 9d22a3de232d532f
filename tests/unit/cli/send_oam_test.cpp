// SPDX-License-Identifier: Apache-2.0
#include "files_fixture.h"
#include "olt/llid.h"

namespace {

class SendOam : public Files {
  protected:
    std::string send(const std::string& path)
    {
        return type("send-oam file " + path);
    }
};

TEST_F(SendOam, FramesAreSentWhole)
{
    enter_llid(5);
    for (const std::size_t size : {64, 1518}) {
        std::string frame(size, '\0');
        frame.replace(0, 6, "\x01\x80\xc2\x00\x00\x02", 6);
        EXPECT_EQ(send(write("frame", frame)), "");
        EXPECT_EQ(result, 0);
        EXPECT_EQ(journal(),
                  Calls{"NEP_send_oam(0, 5, 0180c200000200000000000000000000.., " + std::to_string(size) + ") = 0"});
    }
}

TEST_F(SendOam, SizesAreTheSdksToRefuse)
{
    enter_llid(5);
    for (const std::size_t size : {0, 63, 1519, 1000000}) {
        EXPECT_EQ(send(write("frame", std::string(size, 'x'))), BAD_PARAMETER) << size;
        EXPECT_EQ(result, -4);
        EXPECT_EQ(journal().size(), 1u);
    }
}

TEST_F(SendOam, FilesThatCannotBeLoaded)
{
    enter_llid(5);
    for (const std::string& path : {std::string(folder / "absent"), std::string(folder), std::string("/dev/zero")}) {
        EXPECT_EQ(send(path), CANNOT_OPEN) << path;
        EXPECT_EQ(result, -1);
    }
    EXPECT_EQ(send("/sys/devices/system/cpu/online"), "file_path: Error reading the file \r\n");
    EXPECT_EQ(result, -1);
    EXPECT_EQ(call(send_oam_file, {""}), CANNOT_OPEN);
    EXPECT_EQ(result, -1);
    EXPECT_EQ(journal(), Calls{});
}

TEST_F(SendOam, FailuresAreReported)
{
    const std::string frame = write("frame", std::string(64, 'x'));
    struct Case {
        int16_t olt_id, llid, fault;
        const char* line;
        int result;
    };
    const Case cases[] = {
        {0, 5, -5, HARDWARE, -5}, {0, 9, 0, NO_OAM, -1006}, {0, 6, 0, NO_ONU, -1007}, {1, 5, 0, NO_OLT, -1003}};
    for (const Case& test : cases) {
        enter_llid(test.llid, test.olt_id);
        if (test.fault != 0) inject("NEP_send_oam", test.fault);
        EXPECT_EQ(send(frame), test.line);
        EXPECT_EQ(result, test.result);
    }
}

} // namespace
