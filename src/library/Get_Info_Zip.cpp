#include "core/mdlDebug.h"
#include "core/mdlFormDisplayFunctions.h"
#include "library/Info_Run.h"

#include <algorithm>
#include <set>

namespace vantrosk {

namespace {

constexpr qint64 largest_entry = qint64(64) << 20;   ///< bytes of one extracted file
constexpr qint64 most_extracted = qint64(256) << 20; ///< bytes of one selection
constexpr int most_files = 1000;                     ///< extracted at one selection
constexpr int progress_steps = 100;

QString Stored_name(const cUnzip &zip, int number) {
    const QString directory = zip.FileDirectory(number);
    return directory.isEmpty() ? zip.Filename(number) : directory + "\\" + zip.Filename(number);
}

void Let_events_run(Program &program, int seen, int total) {
    const int step = qMax(1, total / progress_steps);
    if (seen % step != 0 && seen != total)
        return;
    Show_Progress(program, seen, total);
    program.ui.pump_events();
}

void Classify_entries(Program &program, Info_Run &run, const cUnzip &zip) {
    const int total = zip.FileCount();
    qint64 unpacked = 0;
    Show_Progress(program, 0, total);
    for (int i = 1; i <= total; ++i) {
        Let_events_run(program, i, total);
        unpacked += zip.FileSize(i);
        Write_debug_log(program, "Examining " + zip.Filename(i));
        if (zip.FileIsSafe(i))
            Classify_Entry(run.found, i, zip.Filename(i), zip.FileDirectory(i));
        else
            debug_print(program, "MAIN FORM: passed over " + Stored_name(zip, i));
    }
    // 0.9 percent for what files take on a disk beyond their length.
    program.fm.total_uncompressed = unpacked / 1000 * 1009 + unpacked % 1000 * 1009 / 1000;
    if (run.found.languages == std::array<QString, 7>())
        run.found.languages[0] = "English";
    Hide_Progress(program);
}

/// Readmes that were passed over are nothing that the details need.
void Leave_out_other_readmes(Info_Run &run, const cUnzip &zip) {
    const std::set<int> chosen = run.found.chosen_entries();
    std::erase_if(run.found.selected, [&](int number) {
        const QString name = zip.Filename(number).toUpper();
        const bool readme = name.endsWith(QLatin1String(".TXT")) || name.endsWith(QLatin1String(".RTF")) ||
                            name.endsWith(QLatin1String(".VKML"));
        return readme && chosen.count(number) == 0;
    });
}

/// What one zip may take of the disk and of the user's time is bounded; what the rules chose comes first.
void Leave_out_excess(Program &program, Info_Run &run, const cUnzip &zip) {
    const std::set<int> chosen = run.found.chosen_entries();
    std::vector<int> &selected = run.found.selected;
    std::stable_partition(selected.begin(), selected.end(),
                          [&](int number) { return chosen.count(number) > 0; });
    qint64 bytes_left = most_extracted;
    int files_left = most_files;
    std::erase_if(selected, [&](int number) {
        const qint64 size = zip.FileSize(number);
        if (size <= largest_entry && size <= bytes_left && files_left > 0) {
            bytes_left -= size;
            --files_left;
            return false;
        }
        debug_print(program, "MAIN FORM: too much to look at: " + Stored_name(zip, number));
        return true;
    });
}

void Select_only(cUnzip &zip, const std::set<int> &wanted) {
    for (int i = 1; i <= zip.FileCount(); ++i)
        zip.FileSelected(i, wanted.count(i) > 0);
}

/// All at once; when one of them is damaged, each by itself, so that the others are not lost with it.
void Unzip_to(Program &program, cUnzip &zip, const QString &folder, const std::set<int> &wanted) {
    if (wanted.empty())
        return;
    zip.UnzipFolder = folder;
    Select_only(zip, wanted);
    if (!zip.Unzip())
        return;
    Select_only(zip, {});
    for (const int number : wanted) {
        zip.FileSelected(number, true);
        if (const Fault fault = zip.Unzip())
            debug_print(program, "MAIN FORM: " + fault.text);
        zip.FileSelected(number, false);
    }
}

void Extract_selected(Program &program, Info_Run &run, cUnzip &zip) {
    Leave_out_other_readmes(run, zip);
    std::vector<QString> names;
    for (const int number : run.found.selected)
        names.push_back(zip.Filename(number));
    Keep_one_of_each_name(run.found, names);
    Leave_out_excess(program, run, zip);
    const std::set<int> images(run.found.readme_images.begin(), run.found.readme_images.end());
    std::set<int> wanted(run.found.selected.begin(), run.found.selected.end());
    std::set<int> wanted_images;
    for (const int number : images) {
        if (wanted.erase(number) > 0)
            wanted_images.insert(number);
    }
    Unzip_to(program, zip, In_info(program, {}), wanted);
    Unzip_to(program, zip, In_info(program, "VKIMAGES"), wanted_images);
}

} // namespace

Fault List_and_extract(Program &program, Info_Run &run) {
    cUnzip zip(program.files);
    zip.ZipFile = run.zip_path;
    zip.UseFolderNames = false;
    zip.SizeLimit = largest_entry;
    if (Fault fault = zip.Directory())
        return fault;
    Classify_entries(program, run, zip);
    Extract_selected(program, run, zip);
    return {};
}

} // namespace vantrosk
