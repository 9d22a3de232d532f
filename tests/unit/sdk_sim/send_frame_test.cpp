// SPDX-License-Identifier: Apache-2.0
#include "host/sdk_sim/send_frame.h"

#include "host/sdk_sim/model.h"
#include "network_fixture.h"

namespace {

using SendFrameTest = NetworkTest;

sdk_sim::SentFrames sent_frames()
{
    const sdk_sim::ModelLock model;
    return model->olts[0].configuration.sent_frames;
}

TEST_F(SendFrameTest, FramesThatAreSentAreCounted)
{
    const std::uint8_t octets[FRAME_SIZE_MAX + 1] = {};
    const OLT_frame frame{octets, 0, 64};
    EXPECT_EQ(NEP_send_frame(0, FRAME_TO_PON, 0, &frame), 0);
    const OLT_frame stored{nullptr, 0x1000, 1500};
    EXPECT_EQ(NEP_send_frame_ext(0, FRAME_TO_AUTO, -1, FRAME_LLID_CLASS_ALL_10G, &stored, 1), 0);
    EXPECT_EQ(sent_frames().frames, 2u);
    EXPECT_EQ(sent_frames().octets, 1564u);
    const OLT_frame oversized{octets, 0, FRAME_SIZE_MAX + 1};
    EXPECT_EQ(NEP_send_frame(0, FRAME_TO_PON, 0, &oversized), -4);
    EXPECT_EQ(NEP_send_frame(0, FRAME_TO_PON, 2, &frame), -1007);
    EXPECT_EQ(NEP_send_frame(0, FRAME_TO_PON, 0, nullptr), -4);
    EXPECT_EQ(NEP_send_frame(0, FRAME_TO_AUTO_WITHOUT_SYSTEM + 1, 0, &frame), -4);
    EXPECT_EQ(NEP_send_frame(0, -1, 0, &frame), -4);
    EXPECT_EQ(NEP_send_frame_ext(0, FRAME_TO_PON, 0, FRAME_LLID_CLASS_ANTI + 1, &frame, 0), -4);
    EXPECT_EQ(NEP_send_frame_ext(0, FRAME_TO_PON, 0, FRAME_LLID_CLASS_ANTI, &frame, 2), -4);
    EXPECT_EQ(sent_frames().frames, 2u);
    EXPECT_EQ(NEP_reset_olt(0), 0);
    EXPECT_EQ(sent_frames().frames, 0u);
}

} // namespace
