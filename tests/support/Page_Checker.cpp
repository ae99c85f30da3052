#include "support/Page_Checker.h"

#include <QMap>
#include <QRegularExpression>
#include <QStringList>

namespace vantrosk {

namespace {

/// Tags with the attributes that each may have.
const QMap<QString, QStringList> &Allowed() {
    static const QMap<QString, QStringList> allowed{
        {"html", {}},
        {"head", {}},
        {"style", {}},
        {"meta", {"http-equiv", "content"}},
        {"body", {"bgcolor", "topmargin", "leftmargin"}},
        {"table", {"border", "width", "cellspacing", "cellpadding"}},
        {"tr", {}},
        {"td", {"class", "colspan", "rowspan", "width"}},
        {"div", {"align", "style"}},
        {"span", {"class", "title", "style"}},
        {"a", {"href", "target", "title", "id"}},
        {"img", {"src", "border", "style"}},
        {"center", {}},
        {"p", {"class"}},
        {"br", {}},
        {"hr", {}},
    };
    return allowed;
}

bool Fits(const char *pattern, const QString &value) {
    return QRegularExpression(QRegularExpression::anchoredPattern(QString::fromLatin1(pattern)),
                              QRegularExpression::DotMatchesEverythingOption)
        .match(value)
        .hasMatch();
}

bool Is_good_address(QString value) {
    if (Fits("(?i:https?|ftp)://.*", value))
        return true;
    value.replace("&lt;", "<").replace("&gt;", ">");
    return Fits(R"(mailto:[^&?#]*(\?subject=[^&?#]*&body=[^&?#]*)?)", value);
}

bool Is_good_value(const QString &name, const QString &value) {
    if (value.contains('<') || value.contains('>') || value.contains(QChar(0)))
        return false;
    if (name == "href")
        return Is_good_address(value);
    if (name == "src")
        return Fits("data:image/(png|jpeg|bmp);base64,[A-Za-z0-9+/]+=*", value) ||
               Fits(R"((VKIMAGES\\|\.\./HTMLImages/|\.\./custom_game_images/)?(?!\.{1,2}$)[^/\\:&?#'"]+)",
                    value);
    if (name == "class")
        return Fits("[A-Za-z0-9_ ]*", value);
    if (name == "style")
        return Fits(R"([^@\\\\(]*(url\([A-Za-z0-9%._-]+\)[^@\\\\(]*)?(alpha\(opacity=70\)[^@\\\\(]*)?)",
                    value);
    if (name == "id" || name == "target" || name == "align")
        return Fits("[A-Za-z_ ]*", value);
    if (name == "http-equiv" || name == "content")
        return value == "Content-Type" || value == "text/html; charset=UTF-8";
    return true;
}

class Reader {
public:
    explicit Reader(const QString &html) : html_(html) {}

    QString read() {
        if (!html_.startsWith("<html>\r\n<head><style>\r\n") || !html_.endsWith("</body>\r\n</html>"))
            return "the page does not open or close as pages do";
        while (place_ < html_.size() && wrong_.isEmpty()) {
            if (html_[place_] == '<')
                read_tag();
            else
                read_letter();
        }
        if (wrong_.isEmpty() && bodies_ != 1)
            wrong_ = "not one body";
        return wrong_.isEmpty() ? QString() : wrong_ + " before " + html_.mid(place_, 80);
    }

private:
    void read_letter() {
        const char16_t code = html_[place_].unicode();
        if (code == '>' || code == 0x7F || (code < 0x20 && code != '\t' && code != '\r' && code != '\n'))
            wrong_ = "a stray sign " + QString::number(code);
        else
            ++place_;
    }

    void read_tag() {
        ++place_;
        const bool closing = take('/');
        const QString name = take_name();
        if (!Allowed().contains(name)) {
            wrong_ = "a tag <" + name;
            return;
        }
        bodies_ += name == "body" && !closing;
        while (wrong_.isEmpty() && take(' '))
            if (!closing && place_ < html_.size() && html_[place_].isLetter())
                read_attribute(name);
        take('/');
        if (wrong_.isEmpty() && !take('>'))
            wrong_ = "no end of a tag " + name;
        if (name == "style" && !closing)
            read_sheet();
    }

    void read_attribute(const QString &tag) {
        const QString name = take_name();
        if (!Allowed()[tag].contains(name)) {
            wrong_ = "an attribute " + name + " of " + tag;
            return;
        }
        if (!take('=') || !take('\'')) {
            wrong_ = "no quote behind " + name;
            return;
        }
        const qsizetype end = html_.indexOf('\'', place_);
        const QString value = html_.mid(place_, end - place_);
        if (end < 0 || !Is_good_value(name, value))
            wrong_ = "a value of " + name + ": " + value.left(200);
        else
            place_ = end + 1;
    }

    void read_sheet() {
        const qsizetype end = html_.indexOf("</style>", place_);
        const QString sheet = html_.mid(place_, end - place_);
        if (end < 0 || sheet.contains('<') || sheet.contains('@') ||
            sheet.contains("url(", Qt::CaseInsensitive))
            wrong_ = "a style sheet " + sheet;
        else
            place_ = end;
    }

    bool take(char sign) {
        if (place_ >= html_.size() || html_[place_] != QLatin1Char(sign))
            return false;
        ++place_;
        return true;
    }

    QString take_name() {
        const qsizetype start = place_;
        while (place_ < html_.size() && (html_[place_].isLetter() || html_[place_] == '-'))
            ++place_;
        return html_.mid(start, place_ - start).toLower();
    }

    const QString html_;
    qsizetype place_ = 0;
    int bodies_ = 0;
    QString wrong_;
};

} // namespace

QString Wrong_in_page(const QString &html) {
    // As a browser gets it: half a surrogate pair, which no pattern matches, is written as U+FFFD.
    return Reader(QString::fromUtf8(html.toUtf8())).read();
}

QString Seen_text(const QString &html) {
    static const QRegularExpression tags("<[^>]*>");
    QString text = html.mid(html.indexOf("<body"));
    text.replace("<br>", "\n").remove(tags);
    return text.replace("&lt;", "<").replace("&gt;", ">").replace("&nbsp;", " ");
}

} // namespace vantrosk
