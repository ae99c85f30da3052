#include "readme/Rtf_Reader.h"

#include "core/mdlFile_Functions.h"
#include "readme/Code_Pages.h"
#include "readme/Rtf_Sink.h"
#include "readme/Rtf_Words.h"

#include <QHash>

#include <algorithm>
#include <optional>
#include <vector>

namespace vantrosk {

namespace {

constexpr qsizetype word_limit = 32; // letters; longer words are read to their end and mean nothing
constexpr std::size_t stored_groups = 1000;
constexpr qsizetype marks_limit = 64; // bytes
constexpr int number_limit = 1 << 30;
constexpr int fallback_limit = 255;

bool Is_letter(char byte) {
    return (byte >= 'a' && byte <= 'z') || (byte >= 'A' && byte <= 'Z');
}

bool Is_digit(char byte) {
    return byte >= '0' && byte <= '9';
}

int Hex_digit(char byte) {
    if (Is_digit(byte))
        return byte - '0';
    if (byte >= 'a' && byte <= 'f')
        return byte - 'a' + 10;
    if (byte >= 'A' && byte <= 'F')
        return byte - 'A' + 10;
    return -1;
}

bool Is_layout(QChar character) {
    return character == QLatin1Char('\n') || character == QLatin1Char('\t');
}

bool Is_shown(QChar character) {
    return Is_layout(character) || character.category() != QChar::Other_Control;
}

/// Half a surrogate pair is no character.
void Mend_surrogates(QString &text) {
    for (qsizetype i = 0; i < text.size(); ++i) {
        if (!text[i].isSurrogate())
            continue;
        if (text[i].isHighSurrogate() && i + 1 < text.size() && text[i + 1].isLowSurrogate())
            ++i;
        else
            text[i] = QChar::ReplacementCharacter;
    }
}

/// What a group inherits from the one around it and gives back at its end.
struct Group {
    std::optional<int> font; ///< by number; nothing is the default font
    int fallback_length = 1;
    bool hidden = false;
};

/// A word with its number.
struct Word {
    QByteArrayView name;
    std::optional<int> number;
};

class Rtf_Reader {
public:
    explicit Rtf_Reader(QByteArrayView bytes, Rtf_Sink *sink = nullptr) : bytes_(bytes), sink_(sink) {}

    QString text() {
        while (at_ < bytes_.size() && !ended_)
            step();
        flush();
        Mend_surrogates(text_);
        return text_;
    }

private:
    void step() {
        const char byte = bytes_[at_++];
        switch (byte) {
        case '{':
            open_group();
            return;
        case '}':
            close_group();
            return;
        case '\\':
            read_control();
            return;
        case '\r':
        case '\n':
            return;
        default:
            take_byte(byte);
        }
    }

    // Groups. Past the limit they are counted only and share what the last stored one holds.

    void open_group() {
        flush();
        if (sink_)
            sink_->Open_group();
        fallback_left_ = 0;
        ++depth_;
        if (stack_.size() < stored_groups)
            stack_.push_back(now_);
        if (skip_next_group_ && skip_depth_ == 0)
            skip_depth_ = depth_;
        skip_next_group_ = false;
        starred_ = false;
    }

    void close_group() {
        flush();
        if (sink_)
            sink_->Close_group();
        fallback_left_ = 0;
        skip_next_group_ = false;
        starred_ = false;
        if (depth_ <= static_cast<qsizetype>(stack_.size()) && !stack_.empty()) {
            now_ = stack_.back();
            stack_.pop_back();
        }
        --depth_;
        if (depth_ < skip_depth_)
            skip_depth_ = 0;
        if (depth_ < font_table_depth_)
            font_table_depth_ = 0;
        ended_ = depth_ <= 0;
    }

    /// The document's own group is never skipped: its end is the end of the file.
    void skip_group() {
        flush();
        if (depth_ > 1 && skip_depth_ == 0)
            skip_depth_ = depth_;
    }

    bool is_skipped() const { return skip_depth_ != 0; }

    // Controls.

    void read_control() {
        if (at_ >= bytes_.size())
            return;
        if (Is_letter(bytes_[at_]))
            take_word(read_word());
        else
            take_symbol(bytes_[at_++]);
    }

    Word read_word() {
        const qsizetype start = at_;
        while (at_ < bytes_.size() && Is_letter(bytes_[at_]))
            ++at_;
        Word word;
        if (at_ - start <= word_limit)
            word.name = bytes_.sliced(start, at_ - start);
        word.number = read_number();
        if (at_ < bytes_.size() && bytes_[at_] == ' ')
            ++at_;
        return word;
    }

    std::optional<int> read_number() {
        const bool negative = at_ + 1 < bytes_.size() && bytes_[at_] == '-' && Is_digit(bytes_[at_ + 1]);
        if (negative)
            ++at_;
        if (at_ >= bytes_.size() || !Is_digit(bytes_[at_]))
            return std::nullopt;
        qint64 number = 0;
        for (; at_ < bytes_.size() && Is_digit(bytes_[at_]); ++at_)
            number = std::min<qint64>(number * 10 + (bytes_[at_] - '0'), number_limit);
        return static_cast<int>(negative ? -number : number);
    }

    void take_symbol(char symbol) {
        switch (symbol) {
        case '\'':
            take_hex_byte();
            return;
        case '*':
            starred_ = true;
            return;
        case '\r':
            if (at_ < bytes_.size() && bytes_[at_] == '\n')
                ++at_;
            [[fallthrough]];
        case '\n':
            take_character(u'\n');
            return;
        case '\\':
        case '{':
        case '}':
            take_byte(symbol);
            return;
        case '\t':
            take_character(u'\t');
            return;
        case '~':
            take_character(QChar::Nbsp);
            return;
        case '_':
            take_character(u'-');
            return;
        default: // an optional hyphen "\-" among them: the lines here are not broken
            stands_in();
        }
    }

    void take_hex_byte() {
        const int high = at_ < bytes_.size() ? Hex_digit(bytes_[at_]) : -1;
        const int low = at_ + 1 < bytes_.size() ? Hex_digit(bytes_[at_ + 1]) : -1;
        if (high < 0 || low < 0)
            return;
        at_ += 2;
        take_byte(static_cast<char>(high * 16 + low));
    }

    void take_word(const Word &word) {
        const Rtf_Word *known = Find_Rtf_Word(word.name);
        const bool passed_over = starred_ && !(known && known->opens_group());
        starred_ = false;
        if (sink_ && !passed_over) {
            flush();
            sink_->Take_word(word.name, word.number, is_skipped());
        }
        if (passed_over)
            skip_group();
        else if (known && known->text != 0)
            take_character(known->text);
        else
            stands_in();
        if (known && (!passed_over || known->action == Rtf_Action::binary))
            act(*known, word.number);
    }

    void act(const Rtf_Word &word, std::optional<int> number) {
        switch (word.action) {
        case Rtf_Action::unicode:
            take_unicode(number.value_or(0));
            return;
        case Rtf_Action::skip_group:
            skip_group();
            return;
        case Rtf_Action::two_readings:
            skip_next_group_ = !is_skipped();
            return;
        case Rtf_Action::font_table:
            skip_group();
            if (depth_ > 1)
                font_table_depth_ = depth_;
            return;
        case Rtf_Action::binary:
            take_binary(std::clamp<qsizetype>(number.value_or(0), 0, bytes_.size() - at_));
            return;
        default:
            flush();
            set(word, number);
        }
    }

    void set(const Rtf_Word &word, std::optional<int> number) {
        switch (word.action) {
        case Rtf_Action::code_page:
            set_document_page(number.value_or(word.number));
            break;
        case Rtf_Action::default_font:
            default_font_ = number.value_or(0);
            break;
        case Rtf_Action::font:
            (font_table_depth_ ? described_font_ : now_.font) = number.value_or(0);
            break;
        case Rtf_Action::font_charset:
            if (const auto page = Code_page_of_charset(number.value_or(0)))
                describe_font(*page);
            break;
        case Rtf_Action::font_code_page:
            describe_font(number.value_or(0));
            break;
        case Rtf_Action::plain:
            now_.font.reset();
            now_.hidden = false;
            break;
        case Rtf_Action::hidden:
            now_.hidden = number != 0;
            break;
        case Rtf_Action::fallback_length:
            now_.fallback_length = std::clamp(number.value_or(1), 0, fallback_limit);
            break;
        default:
            break;
        }
    }

    // Code pages.

    void set_document_page(int page) {
        if (page > 0)
            document_page_ = page;
    }

    void describe_font(int page) {
        if (font_table_depth_ && described_font_ && page > 0)
            page_of_font_.insert(*described_font_, page);
    }

    int code_page() const { return page_of_font_.value(now_.font.value_or(default_font_), document_page_); }

    // Text.

    /// True when this character or word stands in for a Unicode character that was taken already.
    bool stands_in() {
        if (fallback_left_ == 0)
            return false;
        --fallback_left_;
        return true;
    }

    void take_binary(qsizetype length) {
        if (sink_ && is_skipped())
            sink_->Take_binary(bytes_.sliced(at_, length));
        at_ += length;
    }

    void take_byte(char byte) {
        if (starred_ && byte == ' ')
            return;
        starred_ = false;
        if (sink_ && is_skipped())
            sink_->Take_skipped(byte);
        if (!stands_in() && !is_skipped() && !now_.hidden)
            pending_ += byte;
    }

    void take_character(QChar character) {
        flush();
        starred_ = false;
        // Nothing like that ever stands in: the writer left the fall-back out.
        if (Is_layout(character))
            fallback_left_ = 0;
        if (!stands_in())
            append(character);
    }

    void take_unicode(int number) {
        flush();
        fallback_left_ = now_.fallback_length;
        const int code = number < 0 ? number + 0x10000 : number;
        // A sign of a symbol font, by its byte.
        if (code >= 0xF020 && code <= 0xF0FF)
            append_text(
                Text_of_code_page(QByteArray(1, static_cast<char>(code - 0xF000)), western_code_page));
        else if (code >= 0 && code <= 0xFFFF)
            append(QChar(static_cast<char16_t>(code)));
        else if (code > 0 && code <= 0x10FFFF)
            append_text(QString::fromUcs4(reinterpret_cast<const char32_t *>(&code), 1));
    }

    void append_text(const QString &text) {
        for (const QChar character : text)
            append(character);
    }

    void append(QChar character) {
        if (is_skipped() || now_.hidden)
            return;
        if (character == QChar::LineSeparator || character == QChar::ParagraphSeparator ||
            character == QLatin1Char('\r'))
            character = QLatin1Char('\n');
        if (!Is_shown(character))
            return;
        if (sink_)
            sink_->Take_character(character);
        else
            text_ += character;
    }

    /// Bytes of one font together: a character may take several.
    void flush() {
        if (pending_.isEmpty())
            return;
        append_text(Text_of_code_page(pending_, code_page()));
        pending_.clear();
    }

    QByteArrayView bytes_;
    Rtf_Sink *sink_; ///< takes the text in the place of `text_`; null for none
    qsizetype at_ = 0;
    bool ended_ = false;

    qsizetype depth_ = 0;
    qsizetype skip_depth_ = 0;       ///< of the group that is being skipped; 0 for none
    qsizetype font_table_depth_ = 0; ///< 0 outside of it
    bool skip_next_group_ = false;
    bool starred_ = false; ///< the next word names a group that may be passed over
    std::vector<Group> stack_;
    Group now_;

    int document_page_ = western_code_page;
    int default_font_ = 0;
    std::optional<int> described_font_;
    QHash<int, int> page_of_font_;

    int fallback_left_ = 0;
    QByteArray pending_;
    QString text_;
};

/// Where the document begins; editors put marks and blanks before it. -1 for none.
qsizetype Start_of_rtf(const QByteArray &bytes) {
    return bytes.left(marks_limit).indexOf("{\\rtf");
}

/// A file under the wrong name: its text, unless it is no text either.
QString Text_of_other(const QByteArray &bytes) {
    const QString text = Decode_text(bytes);
    return text.contains(QChar(u'\0')) ? QString() : Split_lines(text).join(QLatin1Char('\n'));
}

} // namespace

QString Text_of_rtf(const QByteArray &bytes) {
    const QByteArray document = bytes.left(rtf_limit);
    const qsizetype start = Start_of_rtf(document);
    return start < 0 ? Text_of_other(document) : Rtf_Reader(QByteArrayView(document).sliced(start)).text();
}

void Read_rtf(const QByteArray &bytes, Rtf_Sink &sink) {
    const QByteArray document = bytes.left(rtf_limit);
    if (const qsizetype start = Start_of_rtf(document); start >= 0) {
        Rtf_Reader(QByteArrayView(document).sliced(start), &sink).text();
        return;
    }
    for (const QChar character : Text_of_other(document))
        if (Is_shown(character))
            sink.Take_character(character);
}

} // namespace vantrosk
