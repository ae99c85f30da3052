#include "readme/Rtf_Words.h"

#include "readme/Code_Pages.h"

#include <algorithm>
#include <array>
#include <string_view>

namespace vantrosk {

namespace {

// Sorted by name.
constexpr auto words = std::to_array<Rtf_Word>({
    {"aftncn", Rtf_Action::skip_group},
    {"aftnsep", Rtf_Action::skip_group},
    {"aftnsepc", Rtf_Action::skip_group},
    {"annotation", Rtf_Action::skip_group},
    {"ansi", Rtf_Action::code_page, 0, western_code_page},
    {"ansicpg", Rtf_Action::code_page},
    {"atnauthor", Rtf_Action::skip_group},
    {"atnid", Rtf_Action::skip_group},
    {"background", Rtf_Action::skip_group},
    {"bin", Rtf_Action::binary},
    {"bullet", Rtf_Action::none, 0x2022},
    {"cell", Rtf_Action::none, u'\t'},
    {"colortbl", Rtf_Action::skip_group},
    {"column", Rtf_Action::none, u'\n'},
    {"cpg", Rtf_Action::font_code_page},
    {"deff", Rtf_Action::default_font},
    {"deleted", Rtf_Action::hidden},
    {"emdash", Rtf_Action::none, 0x2014},
    {"emspace", Rtf_Action::none, 0x2003},
    {"endash", Rtf_Action::none, 0x2013},
    {"enspace", Rtf_Action::none, 0x2002},
    {"f", Rtf_Action::font},
    {"fcharset", Rtf_Action::font_charset},
    {"filetbl", Rtf_Action::skip_group},
    {"fldinst", Rtf_Action::skip_group},
    {"fldtype", Rtf_Action::skip_group},
    {"fonttbl", Rtf_Action::font_table},
    {"footer", Rtf_Action::skip_group},
    {"footerf", Rtf_Action::skip_group},
    {"footerl", Rtf_Action::skip_group},
    {"footerr", Rtf_Action::skip_group},
    {"footnote", Rtf_Action::skip_group},
    {"formfield", Rtf_Action::skip_group},
    {"ftncn", Rtf_Action::skip_group},
    {"ftnsep", Rtf_Action::skip_group},
    {"ftnsepc", Rtf_Action::skip_group},
    {"header", Rtf_Action::skip_group},
    {"headerf", Rtf_Action::skip_group},
    {"headerl", Rtf_Action::skip_group},
    {"headerr", Rtf_Action::skip_group},
    {"info", Rtf_Action::skip_group},
    {"ldblquote", Rtf_Action::none, 0x201C},
    {"line", Rtf_Action::none, u'\n'},
    {"listoverridetable", Rtf_Action::skip_group},
    {"listtable", Rtf_Action::skip_group},
    {"lquote", Rtf_Action::none, 0x2018},
    {"mac", Rtf_Action::code_page, 0, 10000},
    {"nestcell", Rtf_Action::none, u'\t'},
    {"nestrow", Rtf_Action::none, u'\n'},
    {"nesttableprops", Rtf_Action::starred_group},
    {"nonesttables", Rtf_Action::skip_group},
    {"nonshppict", Rtf_Action::skip_group},
    {"objalias", Rtf_Action::skip_group},
    {"objclass", Rtf_Action::skip_group},
    {"objdata", Rtf_Action::skip_group},
    {"objname", Rtf_Action::skip_group},
    {"objsect", Rtf_Action::skip_group},
    {"objtime", Rtf_Action::skip_group},
    {"page", Rtf_Action::none, u'\n'},
    {"par", Rtf_Action::none, u'\n'},
    {"pc", Rtf_Action::code_page, 0, 437},
    {"pca", Rtf_Action::code_page, 0, 850},
    {"pict", Rtf_Action::skip_group},
    {"plain", Rtf_Action::plain},
    {"pntxta", Rtf_Action::skip_group},
    {"pntxtb", Rtf_Action::skip_group},
    {"private", Rtf_Action::skip_group},
    {"qmspace", Rtf_Action::none, 0x2005},
    {"rdblquote", Rtf_Action::none, 0x201D},
    {"revtbl", Rtf_Action::skip_group},
    {"row", Rtf_Action::none, u'\n'},
    {"rquote", Rtf_Action::none, 0x2019},
    {"rxe", Rtf_Action::skip_group},
    {"sect", Rtf_Action::none, u'\n'},
    {"shpinst", Rtf_Action::starred_group},
    {"shppict", Rtf_Action::starred_group},
    {"shprslt", Rtf_Action::skip_group},
    {"sp", Rtf_Action::skip_group},
    {"stylesheet", Rtf_Action::skip_group},
    {"tab", Rtf_Action::none, u'\t'},
    {"tc", Rtf_Action::skip_group},
    {"tcn", Rtf_Action::skip_group},
    {"template", Rtf_Action::skip_group},
    {"txe", Rtf_Action::skip_group},
    {"u", Rtf_Action::unicode},
    {"uc", Rtf_Action::fallback_length},
    {"ud", Rtf_Action::starred_group},
    {"upr", Rtf_Action::two_readings},
    {"v", Rtf_Action::hidden},
    {"xe", Rtf_Action::skip_group},
    {"zwbo", Rtf_Action::none, 0x200B},
    {"zwj", Rtf_Action::none, 0x200D},
    {"zwnj", Rtf_Action::none, 0x200C},
});

constexpr bool Precedes(const Rtf_Word &a, const Rtf_Word &b) {
    return std::string_view(a.name) < b.name;
}

static_assert(std::is_sorted(words.begin(), words.end(), Precedes));

struct Charset {
    int charset, code_page;
};

// Symbol fonts have a page of their own; its signs in 1252 come nearest to what is meant.
constexpr auto charsets = std::to_array<Charset>({
    {0, western_code_page},
    {2, western_code_page},
    {77, 10000},
    {78, 10001},
    {79, 10003},
    {80, 10008},
    {81, 10002},
    {85, 10006},
    {86, 10081},
    {88, 10029},
    {89, 10007},
    {128, 932},
    {129, 949},
    {130, 1361},
    {134, 936},
    {136, 950},
    {161, 1253},
    {162, 1254},
    {163, 1258},
    {177, 1255},
    {178, 1256},
    {186, 1257},
    {204, 1251},
    {222, 874},
    {238, 1250},
    {254, 437},
    {255, 850},
});

} // namespace

const Rtf_Word *Find_Rtf_Word(QByteArrayView name) {
    const std::string_view wanted(name.constData(), static_cast<std::size_t>(name.size()));
    const auto word =
        std::lower_bound(words.begin(), words.end(), wanted,
                         [](const Rtf_Word &one, std::string_view text) { return one.name < text; });
    return word != words.end() && word->name == wanted ? &*word : nullptr;
}

std::optional<int> Code_page_of_charset(int charset) {
    const auto row = std::find_if(charsets.begin(), charsets.end(),
                                  [charset](const Charset &one) { return one.charset == charset; });
    return row == charsets.end() ? std::nullopt : std::optional(row->code_page);
}

} // namespace vantrosk
