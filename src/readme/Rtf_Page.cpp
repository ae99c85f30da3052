#include "readme/Rtf_Page.h"

#include "core/Program.h"
#include "core/mdlDebug.h"
#include "readme/Code_Pages.h"
#include "readme/Pages.h"
#include "readme/Readme_Links.h"
#include "readme/Rtf_Pictures.h"
#include "readme/Rtf_Reader.h"
#include "readme/Rtf_Sink.h"
#include "readme/mdlHTML_stuff.h"

#include <QHash>
#include <QRegularExpression>

#include <algorithm>
#include <array>
#include <string_view>
#include <vector>

namespace vantrosk {

namespace {

constexpr std::size_t stored_groups = 1000, colour_limit = 1000;
constexpr int class_limit = 1000, font_limit = 1000;
constexpr int default_half_points = 24, least_half_points = 12, most_half_points = 144;
constexpr int twips_of_point = 20, indent_limit = 7200, space_limit = 1440; ///< twips
constexpr qsizetype name_limit = 64;
constexpr qsizetype instruction_limit = 4096, link_limit = 5000; ///< bytes of one field, addresses
constexpr qsizetype link_room = qsizetype(4) << 20; ///< characters: every run of a link repeats its address
constexpr int picture_limit = 500;

/// A run of characters.
struct Character_Format {
    bool bold = false, italic = false, underline = false, strike = false, capitals = false;
    int script = 0; ///< above the line 1, below it -1
    int half_points = default_half_points;
    int colour = 0, ground = 0; ///< by number in the colour table; 0 is automatic
    int font = -1;              ///< -1 is the document's default
    int link = 0;               ///< by number, from 1 on; 0 is none

    bool operator==(const Character_Format &) const = default;
};

struct Paragraph_Format {
    const char *align = "left";
    bool right_to_left = false;
    int left = 0, right = 0, first = 0, before = 0, after = 0; ///< twips

    bool operator==(const Paragraph_Format &) const = default;
};

struct Format {
    Character_Format character;
    Paragraph_Format paragraph;
};

struct Font {
    QByteArray name;
    const char *generic = "sans-serif";
};

// What the words of RTF change.

struct Switch_Word {
    const char *name;
    bool Character_Format::*value;
};
constexpr Switch_Word switch_words[] = {
    {"b", &Character_Format::bold},           {"i", &Character_Format::italic},
    {"ul", &Character_Format::underline},     {"uld", &Character_Format::underline},
    {"uldash", &Character_Format::underline}, {"uldb", &Character_Format::underline},
    {"ulw", &Character_Format::underline},    {"ulwave", &Character_Format::underline},
    {"strike", &Character_Format::strike},    {"striked", &Character_Format::strike},
    {"caps", &Character_Format::capitals},
};

struct Number_Word {
    const char *name;
    int Character_Format::*value;
    int least, most;
    int missing; ///< the value of a word without a number
};
constexpr Number_Word number_words[] = {
    {"fs", &Character_Format::half_points, least_half_points, most_half_points, default_half_points},
    {"cf", &Character_Format::colour, 0, int(colour_limit), 0},
    {"cb", &Character_Format::ground, 0, int(colour_limit), 0},
    {"chcbpat", &Character_Format::ground, 0, int(colour_limit), 0},
    {"f", &Character_Format::font, -1, 1 << 20, -1},
};

struct Align_Word {
    const char *name;
    const char *align;
};
constexpr Align_Word align_words[] = {{"ql", "left"}, {"qr", "right"}, {"qc", "center"}, {"qj", "justify"}};

struct Indent_Word {
    const char *name;
    int Paragraph_Format::*value;
    int least, most;
};
constexpr Indent_Word indent_words[] = {
    {"li", &Paragraph_Format::left, 0, indent_limit},
    {"ri", &Paragraph_Format::right, 0, indent_limit},
    {"fi", &Paragraph_Format::first, -indent_limit, indent_limit},
    {"sb", &Paragraph_Format::before, 0, space_limit},
    {"sa", &Paragraph_Format::after, 0, space_limit},
};

struct Generic_Word {
    const char *name;
    const char *generic;
};
constexpr Generic_Word generic_words[] = {
    {"froman", "serif"},   {"fswiss", "sans-serif"}, {"fmodern", "monospace"}, {"fscript", "cursive"},
    {"fdecor", "fantasy"}, {"ftech", "sans-serif"},  {"fnil", "sans-serif"},   {"fbidi", "sans-serif"},
};

/// The sixteen colours of a highlighter, by number from 1 on.
constexpr std::array<const char *, 17> highlight_colours{
    "",        "#000000", "#0000ff", "#00ffff", "#00ff00", "#ff00ff", "#ff0000", "#ffff00", "#ffffff",
    "#000080", "#008080", "#008000", "#800080", "#800000", "#808000", "#808080", "#c0c0c0"};
constexpr int first_highlight = 1 << 16; ///< grounds from here on are a highlighter's

QString Points(int twips) {
    return QString::number(twips / double(twips_of_point)) + "pt";
}

class Markup_Maker : public Rtf_Sink {
public:
    Rtf_Markup Result();

    void Open_group() override;
    void Close_group() override;
    void Take_word(QByteArrayView name, std::optional<int> number, bool skipped) override;
    void Take_character(QChar character) override;
    void Take_skipped(char byte) override;
    void Take_binary(QByteArrayView bytes) override;

private:
    enum class Table { none, fonts, colours };

    void Take_table_word(std::string_view name, int number);
    void Take_character_word(std::string_view name, std::optional<int> number);
    void Take_paragraph_word(std::string_view name, std::optional<int> number);
    void End_table_entry();
    void Take_field_word(std::string_view name);
    void End_instruction();
    void End_picture();
    void End_run();
    void End_paragraph();
    void End_document();
    QString Style_of(const Character_Format &format) const;
    QString Style_of(const Paragraph_Format &format) const;
    QString Colour(int number) const;
    QString Ground(int number) const;
    QString Class_of(const QString &style);

    qsizetype depth_ = 0;
    std::vector<Format> stack_;
    Format now_;

    Table table_ = Table::none;
    qsizetype table_depth_ = 0;
    QHash<int, Font> fonts_;
    int described_font_ = -1, default_font_ = 0;
    QByteArray described_name_;
    const char *described_generic_ = "sans-serif";
    std::vector<QString> colours_;
    std::array<int, 3> described_colour_{};
    bool colour_is_described_ = false;

    qsizetype instruction_depth_ = 0; ///< of what a field is to be; 0 outside of one
    QByteArray instruction_;
    QStringList links_;  ///< the opening tags of the fields that lead somewhere
    int field_link_ = 0; ///< of the field whose result comes next
    qsizetype link_room_ = link_room;

    qsizetype picture_depth_ = 0; ///< 0 outside of a picture
    Rtf_Picture picture_;
    int pictures_ = 0;

    bool line_break_ = false; ///< the next line end does not end its paragraph
    Character_Format run_format_;
    QString run_, paragraph_;
    QHash<QString, QString> classes_; ///< names by their style
    int runs_ = 0;
    Rtf_Markup markup_;
};

void Markup_Maker::Open_group() {
    ++depth_;
    if (stack_.size() < stored_groups)
        stack_.push_back(now_);
}

void Markup_Maker::Close_group() {
    // A font entry in braces of its own may lack its ";".
    if (table_ == Table::fonts)
        End_table_entry();
    if (depth_ == instruction_depth_)
        End_instruction();
    if (depth_ == picture_depth_)
        End_picture();
    if (depth_ == 1)
        End_document();
    if (depth_ <= static_cast<qsizetype>(stack_.size()) && !stack_.empty()) {
        now_ = stack_.back();
        stack_.pop_back();
    }
    --depth_;
    if (depth_ < table_depth_) {
        table_ = Table::none;
        table_depth_ = 0;
    }
}

void Markup_Maker::Take_word(QByteArrayView name_bytes, std::optional<int> number, bool skipped) {
    const std::string_view name(name_bytes.constData(), static_cast<std::size_t>(name_bytes.size()));
    line_break_ = false;
    if (name == "fonttbl" || name == "colortbl") {
        if (table_ == Table::none && depth_ > 1) {
            table_ = name == "fonttbl" ? Table::fonts : Table::colours;
            table_depth_ = depth_;
        }
        return;
    }
    if (table_ != Table::none)
        return Take_table_word(name, number.value_or(0));
    if (picture_depth_ != 0 && depth_ == picture_depth_)
        return Take_picture_word(picture_, name_bytes, number);
    if (skipped)
        return;
    Take_field_word(name);
    line_break_ = name == "line";
    if (name == "deff")
        default_font_ = number.value_or(0);
    Take_character_word(name, number);
    Take_paragraph_word(name, number);
}

void Markup_Maker::Take_table_word(std::string_view name, int number) {
    if (table_ == Table::colours) {
        constexpr std::array<std::string_view, 3> channels{"red", "green", "blue"};
        const auto channel = std::find(channels.begin(), channels.end(), name);
        if (channel == channels.end())
            return;
        described_colour_[static_cast<std::size_t>(channel - channels.begin())] = std::clamp(number, 0, 255);
        colour_is_described_ = true;
        return;
    }
    if (name == "f")
        described_font_ = number;
    for (const Generic_Word &word : generic_words)
        if (name == word.name)
            described_generic_ = word.generic;
}

void Markup_Maker::Take_skipped(char byte) {
    if (picture_depth_ != 0) {
        if (depth_ == picture_depth_)
            Take_picture_digit(picture_, byte);
        return;
    }
    if (instruction_depth_ != 0 && instruction_.size() < instruction_limit)
        instruction_ += byte;
    if (table_ == Table::none)
        return;
    if (byte == ';')
        End_table_entry();
    else if (table_ == Table::fonts && described_name_.size() < name_limit)
        described_name_ += byte;
}

void Markup_Maker::End_table_entry() {
    if (table_ == Table::colours) {
        const auto [red, green, blue] = described_colour_;
        if (colours_.size() < colour_limit)
            colours_.push_back(colour_is_described_ ? QString::asprintf("#%02x%02x%02x", unsigned(red),
                                                                        unsigned(green), unsigned(blue))
                                                    : QString());
        described_colour_ = {};
        colour_is_described_ = false;
        return;
    }
    if (described_font_ >= 0 && !described_name_.trimmed().isEmpty() && fonts_.size() < font_limit)
        fonts_.insert(described_font_, {described_name_.trimmed(), described_generic_});
    described_font_ = -1;
    described_name_.clear();
    described_generic_ = "sans-serif";
}

void Markup_Maker::Take_binary(QByteArrayView bytes) {
    if (picture_depth_ != 0 && depth_ == picture_depth_)
        picture_.bytes += bytes;
}

// Fields and pictures.

void Markup_Maker::Take_field_word(std::string_view name) {
    if (name == "field") {
        field_link_ = 0;
    } else if (name == "fldinst" && depth_ > 1) {
        instruction_depth_ = depth_;
        instruction_.clear();
    } else if (name == "fldrslt") {
        now_.character.link = field_link_;
        field_link_ = 0;
    } else if (name == "pict" && depth_ > 1) {
        picture_depth_ = depth_;
        picture_ = {};
    }
}

/// Of all that a field can be only a link to the world's pages, or a mail, becomes one here.
void Markup_Maker::End_instruction() {
    static const QRegularExpression link(
        QStringLiteral(R"re(^\s*HYPERLINK\s+(?:"([^"]{1,2000})"|([^\s"\\]{1,2000})))re"),
        QRegularExpression::CaseInsensitiveOption);
    instruction_depth_ = 0;
    const QRegularExpressionMatch match = link.match(Text_of_code_page(instruction_, western_code_page));
    static const QRegularExpression behind_receiver("[?&#].*");
    QString address = (match.captured(1) + match.captured(2)).trimmed();
    const bool mail = address.startsWith(QLatin1String("mailto:"), Qt::CaseInsensitive);
    if (mail)
        address.remove(behind_receiver).replace(0, 7, "mailto:");
    if (links_.size() >= link_limit || (!mail && !May_be_followed(address)))
        return;
    links_ << (mail ? "<a href='" + Escape_address(address) + "'>" : Opening_of_link(address));
    field_link_ = static_cast<int>(links_.size());
}

void Markup_Maker::End_picture() {
    picture_depth_ = 0;
    if (++pictures_ > picture_limit)
        return;
    const QString mark_up = Markup_of_picture(picture_);
    picture_ = {};
    if (mark_up.isEmpty())
        return;
    End_run();
    markup_.is_empty = false;
    paragraph_ += mark_up;
}

void Markup_Maker::Take_character_word(std::string_view name, std::optional<int> number) {
    Character_Format &format = now_.character;
    for (const Switch_Word &word : switch_words)
        if (name == word.name)
            format.*word.value = number != 0;
    for (const Number_Word &word : number_words)
        if (name == word.name)
            format.*word.value = std::clamp(number.value_or(word.missing), word.least, word.most);
    if (name == "ulnone")
        format.underline = false;
    else if (name == "super" || name == "up")
        format.script = number == 0 ? 0 : 1;
    else if (name == "sub" || name == "dn")
        format.script = number == 0 ? 0 : -1;
    else if (name == "nosupersub")
        format.script = 0;
    else if (name == "highlight")
        format.ground = number.value_or(0) > 0 ? first_highlight + *number : 0;
    else if (name == "plain")
        format = {.link = format.link}; // which is no format
}

void Markup_Maker::Take_paragraph_word(std::string_view name, std::optional<int> number) {
    Paragraph_Format &format = now_.paragraph;
    for (const Align_Word &word : align_words)
        if (name == word.name)
            format.align = word.align;
    for (const Indent_Word &word : indent_words)
        if (name == word.name)
            format.*word.value = std::clamp(number.value_or(0), word.least, word.most);
    if (name == "rtlpar" || name == "ltrpar")
        format.right_to_left = name == "rtlpar";
    else if (name == "pard")
        format = {};
}

void Markup_Maker::Take_character(QChar character) {
    if (character == u'\n') {
        const bool within = line_break_;
        line_break_ = false;
        End_run();
        if (within)
            paragraph_ += "<br>";
        else
            End_paragraph();
        return;
    }
    if (!(run_format_ == now_.character))
        End_run();
    run_format_ = now_.character;
    markup_.is_empty = markup_.is_empty && character.isSpace();
    run_ += character;
}

void Markup_Maker::End_run() {
    if (run_.isEmpty())
        return;
    const QString name = runs_ < format_limit ? Class_of(Style_of(run_format_)) : QString();
    ++runs_;
    const QString text = run_.toHtmlEscaped();
    const QString run = name.isEmpty() ? text : "<span class='" + name + "'>" + text + "</span>";
    const QString link = run_format_.link > 0 ? links_[run_format_.link - 1] : QString();
    link_room_ -= link.size();
    paragraph_ += link.isEmpty() || link_room_ < 0 ? run : link + run + "</a>";
    run_.clear();
}

void Markup_Maker::End_paragraph() {
    const QString name = runs_ < format_limit ? Class_of(Style_of(now_.paragraph)) : QString();
    ++runs_;
    markup_.body += name.isEmpty() ? QString("<p>") : "<p class='" + name + "'>";
    markup_.body += (paragraph_.isEmpty() ? QString("<br>") : paragraph_) + "</p>\r\n";
    paragraph_.clear();
}

QString Markup_Maker::Colour(int number) const {
    const auto index = static_cast<std::size_t>(number);
    return index < colours_.size() ? colours_[index] : QString();
}

QString Markup_Maker::Ground(int number) const {
    if (number < first_highlight)
        return number == 0 ? QString() : Colour(number);
    const auto index = static_cast<std::size_t>(number - first_highlight);
    return index < highlight_colours.size() ? QString(highlight_colours[index]) : QString();
}

QString Markup_Maker::Style_of(const Character_Format &format) const {
    QString style = "font-size:" + QString::number(format.half_points / 2.0) + "pt;";
    if (format.bold)
        style += "font-weight:bold;";
    if (format.italic)
        style += "font-style:italic;";
    if (format.underline || format.strike)
        style += QString("text-decoration:") + (format.underline ? "underline" : "") +
                 (format.underline && format.strike ? " " : "") + (format.strike ? "line-through;" : ";");
    if (format.capitals)
        style += "text-transform:uppercase;";
    if (format.script != 0)
        style += format.script > 0 ? "vertical-align:super;" : "vertical-align:sub;";
    if (const QString colour = Colour(format.colour); !colour.isEmpty())
        style += "color:" + colour + ";";
    if (const QString ground = Ground(format.ground); !ground.isEmpty())
        style += "background-color:" + ground + ";";
    const auto font = fonts_.constFind(format.font < 0 ? default_font_ : format.font);
    if (font != fonts_.constEnd())
        style += "font-family:\"" +
                 Style_value(Text_of_code_page(font->name, western_code_page)).remove(u'\\') + "\"," +
                 font->generic + ";";
    return style;
}

QString Markup_Maker::Style_of(const Paragraph_Format &format) const {
    QString style;
    if (format.right_to_left)
        style += "direction:rtl;";
    if (format.align != std::string_view("left") || format.right_to_left)
        style += QString("text-align:") + format.align + ";";
    const int least_left = std::max(format.left, -format.first); // nothing hangs out of the page
    if (least_left > 0)
        style += "margin-left:" + Points(least_left) + ";";
    if (format.right > 0)
        style += "margin-right:" + Points(format.right) + ";";
    if (format.first != 0)
        style += "text-indent:" + Points(format.first) + ";";
    if (format.before > 0)
        style += "margin-top:" + Points(format.before) + ";";
    if (format.after > 0)
        style += "margin-bottom:" + Points(format.after) + ";";
    return style;
}

/// Nothing where there is nothing to say, or too much.
QString Markup_Maker::Class_of(const QString &style) {
    if (style.isEmpty())
        return {};
    const auto known = classes_.constFind(style);
    if (known != classes_.constEnd())
        return *known;
    if (classes_.size() >= class_limit)
        return {};
    const QString name = "r" + QString::number(classes_.size());
    classes_.insert(style, name);
    markup_.style += "." + name + "{" + style + "}\r\n";
    return name;
}

/// A last paragraph needs no end of its own.
void Markup_Maker::End_document() {
    End_run();
    if (!paragraph_.isEmpty())
        End_paragraph();
}

Rtf_Markup Markup_Maker::Result() {
    End_document();
    return markup_;
}

/// It looks like paper in an editor, whatever colours the other pages have: the document brings its own.
constexpr QLatin1String
    page_start("<html>\r\n<head>\r\n<meta http-equiv='Content-Type' content='text/html; charset=UTF-8' />\r\n"
               "<style>\r\nbody{background:#ffffff;color:#000000;margin:8px}\r\n"
               "p{margin:0;white-space:pre-wrap;tab-size:36pt;overflow-wrap:break-word}\r\n");

} // namespace

Rtf_Markup Markup_of_rtf(const QByteArray &bytes) {
    Markup_Maker maker;
    Read_rtf(bytes, maker);
    return maker.Result();
}

QString Render_RTF_Readme(Program &program, const QString &path) {
    if (!path.endsWith(".RTF", Qt::CaseInsensitive))
        return {};
    const Result<QByteArray> document = program.files.read_start(path, rtf_limit);
    if (!document.ok()) {
        debug_print(program, "FUNCTIONS: " + document.fault.text);
        return {};
    }
    const Rtf_Markup markup = Markup_of_rtf(document.value);
    if (markup.is_empty)
        return {};
    return Write_page(program, Page_Path(path),
                      page_start + markup.style + "</style>\r\n</head>\r\n<body>\r\n" + markup.body +
                          page_end);
}

} // namespace vantrosk
