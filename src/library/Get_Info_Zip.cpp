#include "core/mdlDebug.h"
#include "core/mdlFormDisplayFunctions.h"
#include "library/Info_Run.h"

#include <set>

namespace vantrosk {

namespace {

constexpr qint64 largest_entry = qint64(64) << 20;   ///< bytes of one extracted file
constexpr qint64 most_extracted = qint64(256) << 20; ///< bytes of one selection
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

/// What one zip may take of the disk is bounded.
void Leave_out_excess(Program &program, Info_Run &run, const cUnzip &zip) {
    qint64 left = most_extracted;
    std::erase_if(run.found.selected, [&](int number) {
        const qint64 size = zip.FileSize(number);
        if (size <= largest_entry && size <= left) {
            left -= size;
            return false;
        }
        debug_print(program, "MAIN FORM: too large to look at: " + Stored_name(zip, number));
        return true;
    });
}

Fault Unzip_these(cUnzip &zip, const std::set<int> &wanted) {
    for (int i = 1; i <= zip.FileCount(); ++i)
        zip.FileSelected(i, wanted.count(i) > 0);
    return zip.Unzip();
}

/// All at once; when one of them is damaged, each by itself, so that the others are not lost with it.
void Unzip_to(Program &program, cUnzip &zip, const QString &folder, const std::set<int> &wanted) {
    if (wanted.empty())
        return;
    zip.UnzipFolder = folder;
    if (!Unzip_these(zip, wanted))
        return;
    for (const int number : wanted) {
        if (const Fault fault = Unzip_these(zip, {number}))
            debug_print(program, "MAIN FORM: " + fault.text);
    }
}

void Extract_selected(Program &program, Info_Run &run, cUnzip &zip) {
    Leave_out_excess(program, run, zip);
    std::vector<QString> names;
    for (const int number : run.found.selected)
        names.push_back(zip.Filename(number));
    Keep_one_of_each_name(run.found, names);
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
