// SPDX-License-Identifier: Apache-2.0
#include <cstring>

#include "files_fixture.h"
#include "olt/onu.h"

namespace {

class OnuFirmware : public Files {
  protected:
    std::string load(const std::string& path)
    {
        return type("load-rbx-onu-firmware image file " + path);
    }

    static std::string progress(int done, int total)
    {
        return "firmware-download-progress: olt 0, onu 5, bytes-done " + std::to_string(done) + ", bytes-total " +
               std::to_string(total) + " \r\n";
    }
};

TEST_F(OnuFirmware, ImagesAreHandedOverWhole)
{
    enter_onu(5);
    EXPECT_EQ(load(write("image", std::string("\0\x01\xff", 3))), "");
    EXPECT_EQ(result, 0);
    EXPECT_EQ(journal(), Calls{"NEP_download_onu_firmware(0, 5, 0001ff, 3) = 0"});
    enter_onu(254);
    EXPECT_EQ(load(write("image", std::string(100000, 'x'))), "");
    EXPECT_EQ(journal(), Calls{"NEP_download_onu_firmware(0, 254, 78787878787878787878787878787878.., 100000) = 0"});
}

TEST_F(OnuFirmware, EventsTellHowFarItIs)
{
    enter_onu(5);
    const std::string image = write("image", std::string(1005, 'x'));
    EventLines events;
    EXPECT_EQ(load(image), "");
    EXPECT_EQ(events.after(199), "");
    EXPECT_EQ(events.after(1), progress(101, 1005));
    EXPECT_EQ(events.after(200), progress(202, 1005));
    EXPECT_EQ(load(image), WRONG_STATE); // one at a time
    EXPECT_EQ(result, -1);
    std::string rest;
    for (int done = 303; done < 1005; done += 101)
        rest += progress(done, 1005);
    EXPECT_EQ(events.after(100000), rest + progress(1005, 1005));
    EXPECT_EQ(load(image), "");
    EXPECT_EQ(events.after(200), progress(101, 1005));
}

TEST_F(OnuFirmware, AnOnuThatLeavesEndsIt)
{
    enter_onu(5);
    const std::string image = write("image", std::string(1000, 'x'));
    EventLines events;
    load(image);
    EXPECT_EQ(events.after(200), progress(100, 1000));
    NEP_reset_olt(0);
    const std::string lines = events.after(10000);
    EXPECT_EQ(lines.find("firmware-download-progress"), std::string::npos) << lines;
}

TEST_F(OnuFirmware, ByAddress)
{
    enter_onu(77);
    session->onu_by_index = 0;
    strcpy(session->onu_mac, "02-00-00-00-00-05");
    EXPECT_EQ(load(write("image", "x")), "");
    EXPECT_EQ(journal(), (Calls{"Mac_address_exist(0, 02-00-00-00-00-05) = 1 -> 5",
                                "NEP_download_onu_firmware(0, 5, 78, 1) = 0"}));
    strcpy(session->onu_mac, "02-00-00-00-00-77");
    EXPECT_EQ(load(write("image", "x")), "There is no 02-00-00-00-00-77 mac address in the system\r\n");
    EXPECT_EQ(result, 0);
}

TEST_F(OnuFirmware, FilesThatCannotBeLoaded)
{
    enter_onu(5);
    for (const std::string& path : {std::string(folder / "absent"), std::string(folder)}) {
        EXPECT_EQ(load(path), CANNOT_OPEN);
        EXPECT_EQ(result, -1);
    }
    EXPECT_EQ(load("/sys/devices/system/cpu/online"), "file_path: Error reading the file \r\n");
    EXPECT_EQ(result, -1);
    EXPECT_EQ(journal(), Calls{});
}

TEST_F(OnuFirmware, RefusalsOfTheSdk)
{
    enter_onu(5);
    EXPECT_EQ(load(write("empty", "")), BAD_PARAMETER);
    EXPECT_EQ(result, -4);
    const std::string large = write("large", "");
    std::filesystem::resize_file(large, ONU_FIRMWARE_MAX_SIZE + 1); // sparse
    EXPECT_EQ(load(large), BAD_PARAMETER);
    EXPECT_EQ(result, -4);
    const std::string image = write("image", "x");
    inject("NEP_download_onu_firmware", -5);
    EXPECT_EQ(load(image), HARDWARE);
    EXPECT_EQ(result, -5);
    enter_onu(9); // not authorized: no OAM
    EXPECT_EQ(load(image), NO_OAM);
    EXPECT_EQ(result, -1006);
    enter_onu(6);
    EXPECT_EQ(load(image), NO_ONU);
    EXPECT_EQ(result, -1007);
    enter_onu(5, ONU_NODE, 1);
    EXPECT_EQ(load(image), NO_OLT);
    EXPECT_EQ(result, -1003);
}

} // namespace
