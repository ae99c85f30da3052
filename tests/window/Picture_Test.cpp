#include "Window_World.h"

#include "ui/qt/Mission_Picture.h"

#include <QCoreApplication>

#include <gtest/gtest.h>

namespace vantrosk {

namespace {

/// One pixel: red in the first frame, green in the second, each for a hundredth of a second times `delay`.
QByteArray Gif(char delay, bool endless = true) {
    QByteArray bytes("GIF89a\x01\0\x01\0\x80\0\0\xFF\0\0\0\xFF\0", 19);
    if (endless)
        bytes += QByteArray("\x21\xFF\x0BNETSCAPE2.0\x03\x01\0\0\0", 19);
    for (const char *pixel : {"\x44\x01", "\x4C\x01"})
        bytes += QByteArray("\x21\xF9\x04\0", 4) + delay + QByteArray("\0\0\0", 3) +
                 QByteArray("\x2C\0\0\0\0\x01\0\x01\0\0\x02\x02", 12) + pixel + QByteArray(1, '\0');
    return bytes + ';';
}

struct Window_Picture : testing::Test {
    Window_World world;
    Mission_Picture picture{Make_Theme({})};

    QString file(const QString &name, const QByteArray &bytes) {
        world.files.write(name, bytes);
        return world.files.native(name);
    }
    QColor colour() const { return picture.picture().toImage().pixelColor(0, 0); }
    bool becomes(Qt::GlobalColor wanted) {
        return Window_World::Wait_until([&] { return colour() == QColor(wanted); });
    }
};

} // namespace

TEST_F(Window_Picture, A_gif_plays_frame_by_frame_for_as_long_as_the_file_says) {
    picture.Show_picture(file("vktitle.GIF", Gif(5)), true);
    EXPECT_EQ(colour(), QColor(Qt::red));
    EXPECT_TRUE(becomes(Qt::green));
    EXPECT_TRUE(becomes(Qt::red));
}

TEST_F(Window_Picture, A_gif_stands_still_where_nothing_is_to_move) {
    picture.Show_picture(file("vktitle.gif", Gif(2)), false);
    EXPECT_EQ(colour(), QColor(Qt::red));
    EXPECT_FALSE(picture.is_moving());
}

TEST_F(Window_Picture, A_picture_that_plays_does_not_begin_again_when_it_is_told_again) {
    const QString path = file("vktitle.gif", Gif(120));
    picture.Show_picture(path, true);
    const qint64 key = picture.picture().cacheKey();
    picture.Show_picture(path, true);
    EXPECT_EQ(picture.picture().cacheKey(), key);
    EXPECT_TRUE(picture.is_moving());
    picture.Show_picture(path, false);
    EXPECT_FALSE(picture.is_moving());
}

TEST_F(Window_Picture, Another_picture_under_the_same_name_is_shown) {
    QImage image(4, 4, QImage::Format_RGB32);
    image.fill(Qt::blue);
    const QString path = file("vktitle.gif", Gif(5));
    picture.Show_picture(path, true);
    image.save(path, "PNG");
    picture.Show_picture(path, true);
    EXPECT_TRUE(becomes(Qt::blue));
}

TEST_F(Window_Picture, Bytes_of_a_gif_that_are_cut_off_or_wrong_do_no_harm) {
    const QByteArray whole = Gif(2);
    for (int length = 0; length < whole.size(); ++length) {
        picture.Show_picture(file(QString("cut%1.gif").arg(length), whole.left(length)), true);
        QCoreApplication::processEvents();
        EXPECT_FALSE(picture.grab().isNull());
    }
    QByteArray vast = whole;
    vast.replace(6, 4, "\xFF\xFF\xFF\xFF");
    picture.Show_picture(file("vast.gif", vast), true);
    EXPECT_FALSE(picture.has_picture());
}

} // namespace vantrosk
