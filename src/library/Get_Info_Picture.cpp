#include "core/mdlDebug.h"
#include "core/mdlFile_Functions.h"
#include "core/mdlFormDisplayFunctions.h"
#include "image/Pictures.h"
#include "library/Info_Run.h"

namespace vantrosk {

namespace {

constexpr qint64 largest_picture = qint64(64) << 20; ///< bytes
constexpr int most_frames = 64;

bool Ends_with(const QString &name, const char *extension) {
    return name.endsWith(QLatin1String(extension), Qt::CaseInsensitive);
}

bool Is_pcx(const QString &name) {
    return Ends_with(name, ".PCX") || Ends_with(name, ".256");
}

QString Bitmap_name(QString name) {
    if (Ends_with(name, ".256"))
        return name.chopped(4) + ".bmp";
    return name.replace(QLatin1String("pcx"), QLatin1String("bmp"), Qt::CaseInsensitive);
}

/// The name in INFO of the bitmap made from a PCX picture of INFO; empty when it is missing or damaged.
QString Convert_picture(Program &program, const QString &name) {
    if (!FileExists(program, In_info(program, name)))
        return {};
    const auto bytes = program.files.read_file(In_info(program, name), largest_picture);
    const auto picture = bytes.ok() ? Decode_pcx(bytes.value) : Result<Picture>{{}, bytes.fault};
    Fault fault = picture.fault;
    if (picture.ok())
        fault = program.files.write_file(In_info(program, Bitmap_name(name)), Encode_bmp(picture.value));
    if (!fault)
        return Bitmap_name(name);
    debug_print(program, "MAIN FORM: " + fault.text);
    return {};
}

/// The path of a picture that the window can load; empty when it is not there.
QString Loadable(const Program &program, const QString &name) {
    if (name.isEmpty() || Is_pcx(name) || !FileExists(program, In_info(program, name)))
        return {};
    return In_info(program, name);
}

QStringList Animation_frames(Program &program, const Info_Run &run) {
    QStringList frames;
    if (!program.tweaks.ENABLE_ANIM_GIFS || run.found.main_frames.size() < 2)
        return frames;
    Set_Status_Panel(program, 2, "Please Wait, calculating animation");
    for (const auto &[number, name] : run.found.main_frames) {
        const QString frame = Loadable(program, Convert_picture(program, name));
        if (!frame.isEmpty() && frames.size() < most_frames)
            frames << frame;
        program.ui.pump_events();
    }
    return frames.size() > 1 ? frames : QStringList();
}

/// The list of recent missions shows the mission's own picture: a copy that outlives INFO.
void Keep_for_recent(Program &program, const Info_Run &run) {
    const QString name = program.fm.recent_image;
    if (!program.tweaks.RECENTLY_USED || name.isEmpty())
        return;
    const QString extension = name.mid(name.lastIndexOf('.'));
    QString kept = QString(run.zip_name).replace(QLatin1String(".zip"), extension, Qt::CaseInsensitive);
    if (Ends_with(name, ".bmp"))
        kept.replace(QLatin1String(".ss2mod"), extension, Qt::CaseInsensitive);
    if (const Fault fault = program.files.copy_file(In_info(program, name), program.paths.titles + kept)) {
        debug_print(program, "MAIN FORM: " + fault.text);
        return;
    }
    program.fm.recent_image = kept;
}

} // namespace

void Convert_pictures(Program &program, Info_Run &run) {
    if (Is_pcx(program.fm.background_image))
        program.fm.background_image = Convert_picture(program, program.fm.background_image);
    if (!run.found.main_picture.isEmpty())
        run.menu_picture = Convert_picture(program, run.found.main_picture);
}

void Show_Picture(Program &program, const Info_Run &run) {
    Details_Panel &details = program.screen.details;
    details.picture_path = Loadable(program, run.found.title_image);
    if (!details.picture_path.isEmpty()) {
        program.fm.recent_image = run.found.title_image;
    } else if (!run.menu_picture.isEmpty()) {
        details.picture_path = Loadable(program, run.menu_picture);
        program.fm.recent_image = run.menu_picture;
        details.animation_paths = Animation_frames(program, run);
    } else {
        details.picture_path = Loadable(program, program.fm.background_image);
    }
    if (!details.picture_path.isEmpty())
        Write_debug_log(program, "Loading Picture.");
    Keep_for_recent(program, run);
    program.ui.details_changed();
    if (!details.picture_path.isEmpty())
        Write_debug_log(program, "Picture Loaded.");
}

} // namespace vantrosk
