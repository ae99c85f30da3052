#include "image/Pictures.h"

#include <gtest/gtest.h>

namespace vantrosk {
namespace {

TEST(Bmp_Encoder, Rows_lie_from_bottom_to_top_as_blue_green_red_and_are_filled_to_4_bytes) {
    const Picture picture{
        3, 2, {1, 2, 3, 255, 4, 5, 6, 255, 7, 8, 9, 255, 10, 11, 12, 0, 13, 14, 15, 128, 16, 17, 18, 255}};
    const QByteArray header = QByteArray::fromHex("424D 4E000000 00000000 36000000"
                                                  "28000000 03000000 02000000 0100 1800 00000000 18000000"
                                                  "130B0000 130B0000 00000000 00000000");
    const QByteArray rows = QByteArray::fromHex("0C0B0A 0F0E0D 121110 000000"
                                                "030201 060504 090807 000000");
    EXPECT_EQ(Encode_bmp(picture).toHex(), (header + rows).toHex());
}

TEST(Bmp_Encoder, A_width_of_four_pixels_needs_no_filling) {
    const Picture picture{4, 1, std::vector<std::uint8_t>(16, 7)};
    EXPECT_EQ(Encode_bmp(picture).size(), 54 + 12);
    EXPECT_EQ(Encode_bmp(picture).mid(54), QByteArray(12, 7));
}

TEST(Bmp_Encoder, A_picture_without_pixels_gives_nothing) {
    EXPECT_EQ(Encode_bmp({}), QByteArray());
    EXPECT_EQ(Encode_bmp({0, 5, {}}), QByteArray());
    EXPECT_EQ(Encode_bmp({5, 0, {}}), QByteArray());
    EXPECT_EQ(Encode_bmp({-1, -1, {1, 2, 3, 4}}), QByteArray());
    EXPECT_EQ(Encode_bmp({2, 1, {1, 2, 3, 4}}), QByteArray());
}

} // namespace
} // namespace vantrosk
