#include "community/Download.h"
#include "core/mdlFile_Functions.h"

#include <array>

namespace vantrosk {

namespace {

struct Entity {
    QLatin1String name;
    char16_t sign;
};
constexpr std::array<Entity, 7> entities{{
    {QLatin1String("amp"), u'&'},
    {QLatin1String("lt"), u'<'},
    {QLatin1String("gt"), u'>'},
    {QLatin1String("quot"), u'"'},
    {QLatin1String("apos"), u'\''},
    {QLatin1String("nbsp"), u'\u00A0'},
    {QLatin1String("not"), u'\u00AC'},
}};
constexpr qsizetype longest_entity = 10; ///< signs between "&" and ";"

QString Sign_of_number(QStringView digits) {
    const bool is_hex = digits.startsWith(u'x') || digits.startsWith(u'X');
    bool is_number = false;
    const uint code = (is_hex ? digits.mid(1) : digits).toUInt(&is_number, is_hex ? 16 : 10);
    const bool is_sign = is_number && code > 0 && code <= 0x10FFFF && (code < 0xD800 || code > 0xDFFF);
    return is_sign ? QString::fromUcs4(reinterpret_cast<const char32_t *>(&code), 1) : QString();
}

/// The sign of an entity's name; empty for none.
QString Sign_of(QStringView name) {
    if (name.startsWith(u'#'))
        return Sign_of_number(name.mid(1));
    for (const Entity &entity : entities)
        if (name == entity.name)
            return QString(QChar(entity.sign));
    return {};
}

/// Goes through an answer once, from mark to mark.
class Text_Reader {
public:
    explicit Text_Reader(const QString &html) : html_(html) {}

    QString read() {
        while (at_ < html_.size()) {
            if (html_[at_] == u'<' && Is_tag())
                Skip_tag();
            else if (html_[at_] == u'&')
                Read_entity();
            else
                text_ += html_[at_++];
        }
        return text_;
    }

private:
    bool Is_tag() const {
        const QChar next = at_ + 1 < html_.size() ? html_[at_ + 1] : QChar();
        return next.isLetter() || next == u'/' || next == u'!';
    }
    bool Starts(const char *text) const {
        return QStringView(html_).mid(at_).startsWith(QLatin1String(text), Qt::CaseInsensitive);
    }
    void Go_behind(const char *end) {
        const qsizetype place = html_.indexOf(QLatin1String(end), at_, Qt::CaseInsensitive);
        at_ = place < 0 ? html_.size() : place + qsizetype(qstrlen(end));
    }
    void Skip_tag() {
        if (Starts("<!--"))
            return Go_behind("-->");
        const bool is_script = Starts("<script"), is_style = Starts("<style");
        if (Starts("<br") || Starts("</p"))
            text_ += u'\n';
        if (is_script)
            return Go_behind("</script>");
        if (is_style)
            return Go_behind("</style>");
        Go_behind(">");
    }
    void Read_entity() {
        const QStringView behind = QStringView(html_).mid(at_ + 1, longest_entity + 1);
        const qsizetype end = behind.indexOf(u';');
        const QString sign = end < 0 ? QString() : Sign_of(behind.left(end));
        text_ += sign.isEmpty() ? QString(u'&') : sign;
        at_ += sign.isEmpty() ? 1 : end + 2;
    }

    const QString &html_;
    qsizetype at_ = 0;
    QString text_;
};

} // namespace

QString Inner_text(const QByteArray &answer) {
    return Text_Reader(Decode_text(answer)).read();
}

} // namespace vantrosk
