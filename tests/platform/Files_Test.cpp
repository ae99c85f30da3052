#include "Platform_World.h"

#include <QRegularExpression>

#include <sys/resource.h>

#include <csignal>
#include <vector>

namespace vantrosk {
namespace {

class Files_Test : public testing::Test {
protected:
    Files_Test() : files(*world.platform.files) { world.make_folder("d"); }

    QString path(const QString &name) const { return world.windows("d") + "\\" + name; }
    QStringList names() const { return world.names("d"); }

    Platform_World world;
    Files &files;
};

/// A listing in one line each: "name kind size".
QStringList Lines_of(const std::vector<File_Info> &entries) {
    QStringList lines;
    for (const File_Info &entry : entries)
        lines << QStringLiteral("%1 %2%3%4 %5")
                     .arg(entry.name, entry.is_folder ? "folder" : "file", entry.is_link ? " link" : "",
                          entry.read_only ? " fixed" : "")
                     .arg(entry.size);
    return lines;
}

const QDateTime some_day(QDate(2003, 2, 9), QTime(14, 5, 7, 250));

TEST_F(Files_Test, A_look_tells_name_size_and_time) {
    world.write("d/Žluť.ZIP", "12345");
    ASSERT_FALSE(files.set_modified(path("Žluť.ZIP"), some_day));
    const auto info = files.look(path("žLUŤ.zip"));
    ASSERT_TRUE(info);
    EXPECT_EQ(info->name, "Žluť.ZIP");
    EXPECT_EQ(info->size, 5);
    EXPECT_EQ(info->modified, some_day);
    EXPECT_EQ(info->modified.timeSpec(), Qt::LocalTime);
    EXPECT_FALSE(info->is_folder || info->is_link || info->read_only);
}

TEST_F(Files_Test, A_folder_has_no_size) {
    const auto info = files.look(world.windows("D"));
    ASSERT_TRUE(info);
    EXPECT_EQ(info->name, "d");
    EXPECT_TRUE(info->is_folder);
    EXPECT_EQ(info->size, 0);
    EXPECT_TRUE(files.look("Z:\\")->is_folder);
}

TEST_F(Files_Test, What_is_not_there_is_nothing) {
    world.write("d/file", "x");
    world.link("d/dangling", "nowhere");
    world.link("d/one", "two");
    world.link("d/two", "one");
    ASSERT_EQ(::mkfifo(world.bytes("d/pipe").constData(), 0600), 0);
    for (const char *name : {"none", "none\\x", "file\\x", "dangling", "one", "one\\x", "pipe"})
        EXPECT_FALSE(files.look(path(name))) << name;
    for (const char *name : {"", "x", "\\\\host\\share\\x", "Q:\\x", "Z:\\dev\\null"})
        EXPECT_FALSE(files.look(name)) << name;
}

TEST_F(Files_Test, A_link_tells_of_its_target) {
    world.write("d/file", "123");
    world.link("d/to file", "file");
    world.link("d/to folder", "../prefix");
    EXPECT_EQ(Lines_of({*files.look(path("TO FILE")), *files.look(path("to folder"))}),
              (QStringList{"to file file link 3", "to folder folder link 0"}));
}

TEST_F(Files_Test, A_listing_is_in_binary_order_and_holds_dangling_links_but_no_pipes) {
    for (const char *name : {"b", "B", "a", "_", "Ž", "z", ".hidden", "馬"})
        world.write(QStringLiteral("d/") + name, name);
    world.make_folder("d/C");
    world.write("d/fixed", "x", 0444);
    world.link("d/gone", "nowhere");
    world.link("d/self", "self");
    world.link("d/up", "..");
    ASSERT_EQ(::mkfifo(world.bytes("d/pipe").constData(), 0600), 0);
    const auto listed = files.list_folder(world.windows("d"));
    ASSERT_TRUE(listed.ok()) << listed.fault.text.toStdString();
    QStringList lines = Lines_of(listed.value);
    // The size of a link to nowhere is the system's affair.
    EXPECT_EQ(lines.replaceInStrings(QRegularExpression("^(gone|self) .*"), "\\1"),
              (QStringList{".hidden file 7", "B file 1", "C folder 0", "_ file 1", "a file 1", "b file 1",
                           "fixed file fixed 1", "gone", "self", "up folder link 0", "z file 1", "Ž file 2",
                           "馬 file 3"}));
}

TEST_F(Files_Test, Names_with_a_backslash_are_listed_with_its_stand_in_and_can_be_read) {
    world.write("d/a\\b", "x");
    const auto listed = files.list_folder(world.windows("d"));
    ASSERT_EQ(listed.value.size(), 1u);
    EXPECT_EQ(listed.value[0].name, QStringLiteral("a\uF05Cb"));
    EXPECT_EQ(files.read_file(path(listed.value[0].name), 10).value, "x");
}

TEST_F(Files_Test, A_listing_that_fails_says_why) {
    world.write("d/file", "x");
    EXPECT_EQ(files.list_folder(path("none")).fault.kind, Fault_Kind::not_found);
    EXPECT_EQ(files.list_folder(path("file")).fault.kind, Fault_Kind::not_found);
    EXPECT_EQ(files.list_folder("x").fault.kind, Fault_Kind::not_found);
    EXPECT_EQ(files.list_folder(path("none")).fault.text,
              QStringLiteral("Could not list \"%1\": there is no such file or folder.")
                  .arg(world.native("d/none")));
}

TEST_F(Files_Test, A_folder_that_can_not_be_read_is_a_fault_of_access) {
    world.give_away("d", 0000);
    EXPECT_EQ(As_ordinary_user([&] { return Number_of(files.list_folder(world.windows("d")).fault); }),
              Number_of(Fault_Kind::no_access));
    world.give_away("d", 0700);
}

TEST_F(Files_Test, A_file_is_read_up_to_the_bound) {
    world.write("d/file", "12345");
    world.write("d/empty", "");
    EXPECT_EQ(files.read_file(path("FILE"), 5).value, "12345");
    EXPECT_EQ(files.read_file(path("file"), 4).fault.kind, Fault_Kind::too_large);
    EXPECT_EQ(files.read_file(path("file"), 4).value, "");
    EXPECT_EQ(
        files.read_file(path("file"), 4).fault.text,
        QStringLiteral("Could not read \"%1\": it is longer than 4 bytes.").arg(world.native("d/file")));
    EXPECT_TRUE(files.read_file(path("empty"), 0).ok());
    EXPECT_EQ(files.read_start(path("file"), 3).value, "123");
    EXPECT_EQ(files.read_start(path("file"), 300).value, "12345");
    EXPECT_EQ(files.read_start(path("file"), 0).value, "");
}

TEST_F(Files_Test, A_large_file_is_read_whole) {
    QByteArray content(300001, 'x');
    for (qsizetype i = 0; i < content.size(); ++i)
        content[i] = static_cast<char>(i * 31);
    world.write("d/file", content);
    EXPECT_EQ(files.read_file(path("file"), 1 << 20).value, content);
    EXPECT_EQ(files.read_start(path("file"), 200000).value, content.left(200000));
}

TEST_F(Files_Test, A_file_of_the_system_without_a_size_is_read) {
    EXPECT_TRUE(files.read_start("Z:\\proc\\self\\stat", 4096).value.contains('('));
    EXPECT_TRUE(files.read_file("Z:\\proc\\self\\stat", 1 << 20).value.contains('('));
    EXPECT_EQ(files.read_file("Z:\\proc\\self\\stat", 3).fault.kind, Fault_Kind::too_large);
}

TEST_F(Files_Test, What_is_no_file_is_not_read) {
    ASSERT_EQ(::mkfifo(world.bytes("d/pipe").constData(), 0600), 0);
    world.link("d/to pipe", "pipe");
    world.link("d/circle", "circle");
    EXPECT_EQ(files.read_file(path("pipe"), 10).fault.kind, Fault_Kind::other);
    EXPECT_EQ(files.read_start(path("to pipe"), 10).fault.kind, Fault_Kind::other);
    EXPECT_EQ(files.read_file("Z:\\dev\\zero", 10).fault.kind, Fault_Kind::other);
    EXPECT_EQ(files.read_file(path("circle"), 10).fault.kind, Fault_Kind::not_found);
    EXPECT_EQ(files.read_file(world.windows("d"), 10).fault.kind, Fault_Kind::not_found);
    EXPECT_EQ(files.read_file(path("none"), 10).fault.kind, Fault_Kind::not_found);
    EXPECT_EQ(files.read_file("relative", 10).fault.text, "There is no \"relative\".");
    EXPECT_EQ(files.copy_file(path("pipe"), path("copy")).kind, Fault_Kind::other);
    EXPECT_EQ(files.append_file(path("pipe"), "x").kind, Fault_Kind::exists);
    EXPECT_EQ(names(), (QStringList{"circle", "pipe", "to pipe"}));
}

TEST_F(Files_Test, Writing_makes_a_file_in_the_spelling_given_and_keeps_that_of_an_old_one) {
    EXPECT_FALSE(files.write_file(path("New Žluť.Txt"), "one"));
    EXPECT_FALSE(files.write_file(path("NEW žLUŤ.txt"), "two"));
    EXPECT_EQ(names(), QStringList("New Žluť.Txt"));
    EXPECT_EQ(world.read("d/New Žluť.Txt"), "two");
    EXPECT_FALSE(files.write_file(path("empty"), ""));
    EXPECT_EQ(files.look(path("empty"))->size, 0);
}

TEST_F(Files_Test, Writing_keeps_the_rights_of_an_old_file) {
    for (const mode_t mode : {0640u, 0755u, 0444u, 0600u}) {
        world.write("d/file", "old", mode);
        EXPECT_FALSE(files.write_file(path("file"), "new"));
        EXPECT_EQ(world.read("d/file"), "new");
        EXPECT_EQ(world.stat("d/file").st_mode & 07777, mode);
        QFile::remove(world.native("d/file"));
    }
}

TEST_F(Files_Test, A_new_file_has_the_rights_that_the_user_gives_new_files) {
    const mode_t before = ::umask(027);
    EXPECT_FALSE(files.write_file(path("file"), "x"));
    EXPECT_FALSE(files.append_file(path("log"), "x"));
    ::umask(before);
    EXPECT_EQ(world.stat("d/file").st_mode & 07777, 0640u);
    EXPECT_EQ(world.stat("d/log").st_mode & 07777, 0640u);
}

TEST_F(Files_Test, Writing_to_a_link_replaces_the_link_and_not_what_it_leads_to) {
    world.write("outside", "untouched");
    world.link("d/link", "../outside");
    EXPECT_FALSE(files.write_file(path("link"), "new"));
    EXPECT_EQ(world.read("outside"), "untouched");
    EXPECT_EQ(world.read("d/link"), "new");
    EXPECT_TRUE(S_ISREG(world.stat("d/link").st_mode));
}

TEST_F(Files_Test, Writing_that_fails_says_why_and_leaves_nothing) {
    world.make_folder("d/folder");
    world.write("d/file", "x");
    EXPECT_EQ(files.write_file(path("none\\file"), "x").kind, Fault_Kind::not_found);
    EXPECT_EQ(files.write_file(path("file\\file"), "x").kind, Fault_Kind::not_found);
    EXPECT_EQ(files.write_file(path("folder"), "x").kind, Fault_Kind::exists);
    EXPECT_EQ(files.write_file("Q:\\x", "x").kind, Fault_Kind::not_found);
    EXPECT_EQ(files.write_file("\\\\host\\x", "x").kind, Fault_Kind::not_found);
    EXPECT_EQ(files.write_file(path(QStringLiteral("n").repeated(300)), "x").kind, Fault_Kind::other);
    EXPECT_EQ(files.append_file(path("none\\file"), "x").kind, Fault_Kind::not_found);
    EXPECT_EQ(files.append_file(path("folder"), "x").kind, Fault_Kind::exists);
    EXPECT_EQ(names(), (QStringList{"file", "folder"}));
}

TEST_F(Files_Test, A_path_with_dots_does_not_leave_its_drive) {
    EXPECT_FALSE(files.write_file("C:\\..\\..\\..\\escaped.txt", "x"));
    EXPECT_EQ(world.read("prefix/drive_c/escaped.txt"), "x");
    world.make_folder("other/deep");
    world.link("d/deep", world.native("other/deep"));
    EXPECT_FALSE(files.write_file(path("deep\\..\\file"), "x"));
    EXPECT_EQ(names(), (QStringList{"deep", "file"}));
    EXPECT_EQ(world.names("other"), QStringList("deep"));
}

TEST_F(Files_Test, A_folder_without_the_right_to_write_is_a_fault_of_access) {
    world.write("d/file", "old", 0666);
    world.give_away("d", 0555);
    for (const auto &work : std::vector<std::function<Fault()>>{
             [&] { return files.write_file(path("file"), "new"); },
             [&] { return files.append_file(path("log"), "new"); },
             [&] { return files.copy_file(path("file"), path("copy")); },
             [&] { return files.move_file(path("file"), path("moved")); },
             [&] { return files.remove_file(path("file")); },
             [&] { return files.make_folder(path("folder")); },
         })
        EXPECT_EQ(As_ordinary_user([&] { return Number_of(work()); }), Number_of(Fault_Kind::no_access));
    EXPECT_EQ(world.read("d/file"), "old");
    EXPECT_EQ(names(), QStringList("file"));
    world.give_away("d", 0755);
}

/// Runs work in a process whose files may not grow over 100 bytes, as on a full disk.
int With_full_disk(const std::function<Fault()> &work) {
    return In_own_process([&] {
        std::signal(SIGXFSZ, SIG_IGN);
        const rlimit limit{100, 100};
        if (::setrlimit(RLIMIT_FSIZE, &limit) != 0)
            return 99;
        return Number_of(work());
    });
}

TEST_F(Files_Test, On_a_full_disk_the_old_file_is_whole_and_nothing_is_left) {
    const int no_space = Number_of(Fault_Kind::no_space);
    const QByteArray large(200000, 'n');
    world.write("d/file", "old");
    world.write("d/source", large);
    EXPECT_EQ(With_full_disk([&] { return files.write_file(path("file"), large); }), no_space);
    EXPECT_EQ(With_full_disk([&] { return files.write_file(path("new"), large); }), no_space);
    EXPECT_EQ(With_full_disk([&] { return files.copy_file(path("source"), path("file")); }), no_space);
    EXPECT_EQ(With_full_disk([&] { return files.append_file(path("source"), "x"); }), no_space);
    EXPECT_EQ(With_full_disk([&] { return files.append_file(path("file"), large); }), no_space);
    EXPECT_EQ(With_full_disk([&] { return files.write_file(path("small"), "fits"); }), 0);
    EXPECT_EQ(world.read("d/file"), "old");
    EXPECT_EQ(world.read("d/source"), large);
    EXPECT_EQ(names(), (QStringList{"file", "small", "source"}));
}

TEST_F(Files_Test, Appending_makes_the_file_and_goes_on_at_its_end) {
    EXPECT_FALSE(files.append_file(path("Log.txt"), "one\r\n"));
    EXPECT_FALSE(files.append_file(path("LOG.TXT"), "two\r\n"));
    EXPECT_EQ(world.read("d/Log.txt"), "one\r\ntwo\r\n");
    EXPECT_EQ(names(), QStringList("Log.txt"));
}

TEST_F(Files_Test, Copying_keeps_content_time_and_rights_to_run) {
    world.write("d/from", "content", 0755);
    ASSERT_FALSE(files.set_modified(path("from"), some_day));
    EXPECT_FALSE(files.copy_file(path("FROM"), path("to")));
    EXPECT_EQ(world.read("d/to"), "content");
    EXPECT_EQ(files.look(path("to"))->modified, some_day);
    EXPECT_EQ(world.stat("d/to").st_mode & 0700, 0700u);
    EXPECT_EQ(world.read("d/from"), "content");
}

TEST_F(Files_Test, Copying_replaces_and_the_copy_can_be_written) {
    world.write("d/from", "new", 0444);
    world.write("d/to", "old and longer");
    EXPECT_FALSE(files.copy_file(path("from"), path("TO")));
    EXPECT_FALSE(files.copy_file(path("from"), path("fresh")));
    EXPECT_EQ(world.read("d/to"), "new");
    EXPECT_FALSE(files.look(path("fresh"))->read_only);
    EXPECT_EQ(names(), (QStringList{"fresh", "from", "to"}));
    EXPECT_FALSE(files.copy_file(path("from"), path("from")));
    EXPECT_EQ(world.read("d/from"), "new");
}

TEST_F(Files_Test, Copying_that_fails_says_why) {
    world.write("d/from", "x");
    EXPECT_EQ(files.copy_file(path("none"), path("to")).kind, Fault_Kind::not_found);
    EXPECT_EQ(files.copy_file(path("from"), path("none\\to")).kind, Fault_Kind::not_found);
    EXPECT_EQ(files.copy_file(path("from"), world.windows("prefix")).kind, Fault_Kind::exists);
    EXPECT_EQ(files.copy_file("x", path("to")).kind, Fault_Kind::not_found);
    EXPECT_EQ(files.copy_file(path("from"), "x").kind, Fault_Kind::not_found);
}

TEST_F(Files_Test, Moving_replaces_and_keeps_time_and_rights) {
    world.write("d/from", "new", 0640);
    world.write("d/to", "old");
    ASSERT_FALSE(files.set_modified(path("from"), some_day));
    EXPECT_FALSE(files.move_file(path("FROM"), path("TO")));
    EXPECT_EQ(names(), QStringList("to"));
    EXPECT_EQ(world.read("d/to"), "new");
    EXPECT_EQ(files.look(path("to"))->modified, some_day);
    EXPECT_EQ(world.stat("d/to").st_mode & 0777, 0640u);
}

TEST_F(Files_Test, Moving_can_change_the_spelling_alone) {
    world.write("d/Readme.TXT", "x");
    EXPECT_FALSE(files.move_file(path("readme.txt"), path("README.txt")));
    EXPECT_EQ(names(), QStringList("README.txt"));
    EXPECT_FALSE(files.move_file(path("README.txt"), path("README.txt")));
    EXPECT_EQ(names(), QStringList("README.txt"));
}

TEST_F(Files_Test, Moving_over_a_second_name_of_the_same_file_leaves_one_name) {
    world.write("d/from", "x");
    ASSERT_EQ(::link(world.bytes("d/from").constData(), world.bytes("d/to").constData()), 0);
    EXPECT_FALSE(files.move_file(path("from"), path("to")));
    EXPECT_EQ(names(), QStringList("to"));
    EXPECT_EQ(world.read("d/to"), "x");
}

TEST_F(Files_Test, Moving_takes_a_folder_or_a_link_along) {
    world.write("d/folder/file", "x");
    world.link("d/link", "nowhere");
    EXPECT_FALSE(files.move_file(path("folder"), path("moved")));
    EXPECT_FALSE(files.move_file(path("link"), path("moved\\link")));
    EXPECT_EQ(names(), QStringList("moved"));
    EXPECT_EQ(world.names("d/moved"), (QStringList{"file", "link"}));
}

TEST_F(Files_Test, Moving_that_fails_says_why_and_moves_nothing) {
    world.write("d/from", "x");
    world.make_folder("d/folder/sub");
    EXPECT_EQ(files.move_file(path("none"), path("to")).kind, Fault_Kind::not_found);
    EXPECT_EQ(files.move_file(path("from"), path("none\\to")).kind, Fault_Kind::not_found);
    EXPECT_EQ(files.move_file(path("from"), path("folder")).kind, Fault_Kind::exists);
    EXPECT_EQ(files.move_file(path("folder"), path("from")).kind, Fault_Kind::exists);
    EXPECT_TRUE(files.move_file(path("folder"), path("folder\\sub\\deeper")));
    EXPECT_EQ(files.move_file("x", path("to")).kind, Fault_Kind::not_found);
    EXPECT_EQ(files.move_file(path("from"), "x").kind, Fault_Kind::not_found);
    EXPECT_EQ(names(), (QStringList{"folder", "from"}));
}

TEST_F(Files_Test, Moving_to_another_file_system_copies_and_deletes) {
    QTemporaryDir other("/dev/shm/vantrosk-XXXXXX");
    struct stat there {};
    if (!other.isValid() || ::stat(other.path().toUtf8().constData(), &there) != 0 ||
        there.st_dev == world.stat("d").st_dev)
        GTEST_SKIP() << "no second file system to write to";
    const QString target = files.to_windows(other.filePath("Žluť"));
    world.write("d/from", "content", 0750);
    ASSERT_FALSE(files.set_modified(path("from"), some_day));
    EXPECT_FALSE(files.move_file(path("from"), target));
    EXPECT_EQ(names(), QStringList());
    EXPECT_EQ(files.read_file(target, 100).value, "content");
    EXPECT_EQ(files.look(target)->modified, some_day);
    world.write("d/large", QByteArray(500000, 'n'));
    EXPECT_EQ(With_full_disk([&] { return files.move_file(path("large"), target); }),
              Number_of(Fault_Kind::no_space));
    EXPECT_EQ(files.read_file(target, 100).value, "content");
    EXPECT_EQ(world.read("d/large").size(), 500000);
    EXPECT_FALSE(files.move_file(path("large"), target));
    EXPECT_EQ(files.look(target)->size, 500000);
    world.write("d/folder/file", "x");
    EXPECT_TRUE(files.move_file(path("folder"), target + "2"));
    EXPECT_EQ(world.read("d/folder/file"), "x");
}

TEST_F(Files_Test, Removing_takes_files_and_links_but_no_folders) {
    world.write("d/File", "x", 0444);
    world.write("d/kept", "x");
    world.make_folder("d/folder");
    world.link("d/to folder", "folder");
    world.link("d/to kept", "kept");
    world.link("d/dangling", "nowhere");
    for (const char *name : {"FILE", "to folder", "TO KEPT", "dangling"})
        EXPECT_FALSE(files.remove_file(path(name))) << name;
    EXPECT_EQ(files.remove_file(path("none")).kind, Fault_Kind::not_found);
    EXPECT_EQ(files.remove_file("x").kind, Fault_Kind::not_found);
    EXPECT_TRUE(files.remove_file(path("folder")));
    EXPECT_EQ(names(), (QStringList{"folder", "kept"}));
}

TEST_F(Files_Test, Removing_a_folder_wants_it_empty) {
    world.write("d/full/file", "x");
    world.make_folder("d/Empty");
    world.link("d/link", "full");
    EXPECT_FALSE(files.remove_folder(path("EMPTY")));
    EXPECT_EQ(files.remove_folder(path("full")).kind, Fault_Kind::exists);
    EXPECT_EQ(files.remove_folder(path("none")).kind, Fault_Kind::not_found);
    EXPECT_EQ(files.remove_folder("x").kind, Fault_Kind::not_found);
    EXPECT_TRUE(files.remove_folder(path("full\\file")));
    EXPECT_TRUE(files.remove_folder(path("link")));
    EXPECT_EQ(names(), (QStringList{"full", "link"}));
}

TEST_F(Files_Test, Making_a_folder_makes_its_parents_and_takes_what_is_there) {
    EXPECT_FALSE(files.make_folder(path("Žluť\\b\\c")));
    EXPECT_FALSE(files.make_folder(path("žLUŤ\\B\\d")));
    EXPECT_FALSE(files.make_folder(path("Žluť\\b\\c")));
    EXPECT_EQ(names(), QStringList("Žluť"));
    EXPECT_EQ(world.names("d/Žluť/b"), (QStringList{"c", "d"}));
    EXPECT_FALSE(files.make_folder("Z:\\"));
    world.link("d/link", "Žluť");
    EXPECT_FALSE(files.make_folder(path("link\\b\\e")));
    EXPECT_EQ(world.names("d/Žluť/b"), (QStringList{"c", "d", "e"}));
}

TEST_F(Files_Test, Making_a_folder_in_the_way_of_a_file_is_a_fault) {
    world.write("d/file", "x");
    world.link("d/dangling", "nowhere");
    EXPECT_EQ(files.make_folder(path("file")).kind, Fault_Kind::exists);
    EXPECT_EQ(files.make_folder(path("dangling")).kind, Fault_Kind::exists);
    EXPECT_EQ(files.make_folder(path("file\\sub")).kind, Fault_Kind::not_found);
    EXPECT_EQ(files.make_folder("Q:\\x").kind, Fault_Kind::not_found);
    EXPECT_EQ(files.make_folder("x").kind, Fault_Kind::not_found);
}

TEST_F(Files_Test, Clearing_attributes_lifts_the_write_protection_of_the_thing_itself) {
    world.write("d/fixed", "x", 0444);
    world.write("d/free", "x", 0600);
    world.link("d/link", "fixed");
    EXPECT_FALSE(files.clear_attributes(path("link")));
    EXPECT_TRUE(files.look(path("fixed"))->read_only);
    EXPECT_FALSE(files.clear_attributes(path("FIXED")));
    EXPECT_FALSE(files.look(path("fixed"))->read_only);
    EXPECT_EQ(world.stat("d/fixed").st_mode & 07777, 0644u);
    EXPECT_FALSE(files.clear_attributes(path("free")));
    EXPECT_EQ(world.stat("d/free").st_mode & 07777, 0600u);
    EXPECT_EQ(files.clear_attributes(path("none")).kind, Fault_Kind::not_found);
    EXPECT_EQ(files.clear_attributes("x").kind, Fault_Kind::not_found);
}

TEST_F(Files_Test, A_time_before_1970_is_kept_too) {
    world.write("d/file", "x");
    for (const qint64 time : {-1LL, -1000LL, -1001LL, 0LL, 1LL, 999LL, 4102444800123LL}) {
        EXPECT_FALSE(files.set_modified(path("file"), QDateTime::fromMSecsSinceEpoch(time)));
        EXPECT_EQ(files.look(path("file"))->modified.toMSecsSinceEpoch(), time);
    }
    EXPECT_EQ(files.set_modified(path("none"), some_day).kind, Fault_Kind::not_found);
    EXPECT_EQ(files.set_modified("x", some_day).kind, Fault_Kind::not_found);
}

TEST_F(Files_Test, The_real_path_has_no_links) {
    world.write("d/Folder/file", "x");
    world.link("d/link", "Folder");
    world.link("d/circle", "circle");
    world.link("prefix/drive_c/game", world.native("d/Folder"));
    EXPECT_EQ(files.real_path(path("LINK\\FILE")), path("Folder\\file"));
    EXPECT_EQ(files.real_path("C:\\game\\file"), path("Folder\\file"));
    EXPECT_EQ(files.real_path("C:\\"), "C:\\");
    for (const QString &none : {path("none"), path("circle"), QStringLiteral("x"), QString()})
        EXPECT_EQ(files.real_path(none), QString());
}

TEST_F(Files_Test, Native_and_windows_paths_are_two_names_of_one_file) {
    world.write("d/Žluť/x", "x");
    EXPECT_EQ(files.to_native(path("žluť\\X")), world.native("d/Žluť/x"));
    EXPECT_EQ(files.to_windows(files.to_native(path("žluť\\X"))), path("Žluť\\x"));
}

} // namespace
} // namespace vantrosk
