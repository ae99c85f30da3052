#include "core/Database_Engine.h"
#include "core/mdlDB_Functions.h"
#include "core/mdlErrorHandler.h"

#include <algorithm>
#include <vector>

namespace vantrosk {

namespace {

enum class Kind { word, number, text, symbol, engine }; // engine: already in the engine's form

struct Token {
    Kind kind = Kind::symbol;
    QString text; ///< of a text its value, without quotes

    bool is_word(const char *word) const {
        return kind == Kind::word && text.compare(QLatin1String(word), Qt::CaseInsensitive) == 0;
    }
    bool is_symbol(const char *symbol) const { return kind == Kind::symbol && text == QLatin1String(symbol); }
};

using Tokens = std::vector<Token>;

[[noreturn]] void Refuse(const QString &reason) {
    constexpr int syntax_error = 1; // the engine's number for a statement that it can not read
    throw Program_Error(syntax_error, reason);
}

bool Is_word_start(QChar letter) {
    return letter.isLetter() || letter == '_' || letter.isSurrogate();
}

/// Reads a statement from the left, one token at a time.
class Tokenizer {
public:
    explicit Tokenizer(const QString &sql) : sql_(sql) {}

    Tokens all() {
        Tokens tokens;
        while (true) {
            while (place_ < sql_.size() && sql_[place_].isSpace())
                ++place_;
            if (place_ >= sql_.size())
                return tokens;
            tokens.push_back(next());
        }
    }

private:
    QChar at(qsizetype place) const { return place < sql_.size() ? sql_[place] : QChar(); }

    Token next() {
        const QChar letter = sql_[place_];
        if (letter == '\'' || letter == '"')
            return {Kind::text, quoted(letter)};
        if (letter == '#')
            return date();
        if (letter == '[')
            return {Kind::engine, "[" + up_to(']') + "]"};
        if (letter.isDigit() || (letter == '.' && at(place_ + 1).isDigit()))
            return {Kind::number, number()};
        if (Is_word_start(letter))
            return {Kind::word, word()};
        return {Kind::symbol, symbol()};
    }

    QString quoted(QChar quote) {
        QString value;
        for (++place_; place_ < sql_.size(); ++place_) {
            if (sql_[place_] == quote) {
                if (at(place_ + 1) != quote) {
                    ++place_;
                    return value;
                }
                ++place_;
            }
            value += sql_[place_];
        }
        Refuse("Syntax error in string: a quote is not closed.");
    }

    QString up_to(QChar end) {
        const auto close = sql_.indexOf(end, place_ + 1);
        if (close < 0)
            Refuse(QString("Syntax error: '%1' is missing.").arg(end));
        const QString inner = sql_.mid(place_ + 1, close - place_ - 1);
        place_ = close + 1;
        return inner;
    }

    Token date() {
        const QString inner = up_to('#');
        // "##" is what an unknown date becomes when a statement is put together.
        if (inner.trimmed().isEmpty())
            return {Kind::word, "null"};
        const QDateTime when = Stored_date_time(inner);
        if (!when.isValid())
            Refuse(QString("Syntax error in date '#%1#'.").arg(inner));
        return {Kind::text, when.toString("yyyy-MM-dd HH:mm:ss")};
    }

    QString number() {
        const auto start = place_;
        const auto digits = [this] {
            while (at(place_) >= '0' && at(place_) <= '9')
                ++place_;
        };
        digits();
        if (at(place_) == '.') {
            ++place_;
            digits();
        }
        const bool signed_power = at(place_ + 1) == '+' || at(place_ + 1) == '-';
        if (at(place_).toLower() == 'e' && at(place_ + (signed_power ? 2 : 1)).isDigit()) {
            place_ += signed_power ? 2 : 1;
            digits();
        }
        if (place_ == start) // a digit of another script
            Refuse(QString("Syntax error at '%1'.").arg(sql_[start]));
        return sql_.mid(start, place_ - start);
    }

    QString word() {
        const auto start = place_;
        while (place_ < sql_.size() && (Is_word_start(sql_[place_]) || sql_[place_].isDigit()))
            ++place_;
        return sql_.mid(start, place_ - start);
    }

    /// Only these; what else the engine knows (parameters, comments, its own quotes) is not of the dialect.
    QString symbol() {
        static const char *const symbols[] = {"<>", "<=", ">=", "=", "<", ">", "(", ")",
                                              ",",  ".",  "*",  "+", "-", "/", ";"};
        for (const char *known : symbols) {
            const QLatin1String text(known);
            if (QStringView(sql_).mid(place_).startsWith(text)) {
                place_ += text.size();
                return text;
            }
        }
        Refuse(QString("Syntax error at '%1'.").arg(sql_[place_]));
    }

    const QString &sql_;
    qsizetype place_ = 0;
};

/// A text in the engine's quotes. The engine stops reading at a zero, so that one goes in as a function.
QString Engine_text(const QString &value) {
    const QString quoted = In_single_quotes(value);
    if (!value.contains(QChar(0)))
        return quoted;
    return "(" + QString(quoted).replace(QChar(0), "'||char(0)||'") + ")";
}

QString Write(const Tokens &tokens) {
    QString sql;
    QString before = "(";
    for (const Token &token : tokens) {
        const bool opens = before == "(" || before == ".";
        const bool tight = token.kind == Kind::symbol && QString("(),.").contains(token.text);
        if (!opens && !tight)
            sql += ' ';
        sql += token.kind == Kind::text ? Engine_text(token.text) : token.text;
        before = token.kind == Kind::symbol ? token.text : QString();
    }
    return sql;
}

struct Column_Type {
    const char *name;
    const char *engine;
    bool has_size; ///< a width in brackets is kept
    bool is_text;
};

constexpr Column_Type column_types[] = {
    {"counter", "INTEGER", false, false},  {"text", "TEXT", true, true},
    {"memo", "TEXT", false, true},         {"datetime", "TEXT", false, false},
    {"currency", "NUMERIC", false, false}, {"number", "NUMERIC", false, false},
    {"integer", "INTEGER", false, false},  {"boolean", "INTEGER", false, false},
};

const Column_Type *Find_type(const QString &name) {
    for (const Column_Type &type : column_types) {
        if (name.compare(QLatin1String(type.name), Qt::CaseInsensitive) == 0)
            return &type;
    }
    return nullptr;
}

/// "name type ..." of one column, from `place` up to the comma or bracket behind it.
void Translate_column(const Tokens &from, size_t &place, Tokens &to) {
    if (place < from.size())
        to.push_back(from[place++]);
    const Column_Type *type = place < from.size() ? Find_type(from[place].text) : nullptr;
    if (!type)
        Refuse("Syntax error in field definition.");
    ++place;
    QString engine_type = QLatin1String(type->engine);
    if (place + 2 < from.size() && from[place].is_symbol("(")) {
        if (type->has_size)
            engine_type += "(" + from[place + 1].text + ")";
        place += 3;
    }
    to.push_back({Kind::engine, engine_type});
    if (type->is_text)
        to.push_back({Kind::engine, QString("COLLATE ") + text_collation});
    const bool counts = QLatin1String(type->name) == QLatin1String("counter");
    for (; place < from.size() && !from[place].is_symbol(",") && !from[place].is_symbol(")"); ++place) {
        to.push_back(from[place]);
        if (counts && from[place].is_word("key"))
            to.push_back({Kind::engine, "AUTOINCREMENT"});
    }
}

/// CREATE TABLE [IF NOT EXISTS] name (column, column ...)
Tokens Translate_create(const Tokens &from) {
    const auto opening =
        std::find_if(from.begin(), from.end(), [](const Token &token) { return token.is_symbol("("); });
    if (opening == from.end() || !from[1].is_word("table"))
        Refuse("Syntax error in CREATE TABLE statement.");
    Tokens to(from.begin(), opening + 1);
    size_t place = to.size();
    do {
        Translate_column(from, place, to);
        if (place >= from.size())
            Refuse("Syntax error in CREATE TABLE statement.");
        to.push_back(from[place++]);
    } while (!to.back().is_symbol(")"));
    to.insert(to.end(), from.begin() + static_cast<std::ptrdiff_t>(place), from.end());
    return to;
}

/// ALTER TABLE name ADD COLUMN column, or ALTER TABLE name ALTER COLUMN name Text(size).
Tokens Translate_alter(const Tokens &from) {
    if (from.size() < 7)
        Refuse("Syntax error in ALTER TABLE statement.");
    if (from[3].is_word("add")) {
        Tokens to(from.begin(), from.begin() + 5);
        size_t place = 5;
        Translate_column(from, place, to);
        return to;
    }
    if (!from[3].is_word("alter") || from.size() < 10)
        Refuse("Syntax error in ALTER TABLE statement.");
    return {{Kind::engine, QString("INSERT OR REPLACE INTO %1").arg(column_sizes_table)},
            {Kind::engine, "(table_name, column_name, size) VALUES"},
            {Kind::symbol, "("},
            {Kind::text, from[2].text},
            {Kind::symbol, ","},
            {Kind::text, from[5].text},
            {Kind::symbol, ","},
            from[8],
            {Kind::symbol, ")"}};
}

bool Is_comparison(const Token &token) {
    static const char *const comparisons[] = {"=", "<>", "<", ">", "<=", ">="};
    return std::any_of(std::begin(comparisons), std::end(comparisons),
                       [&token](const char *known) { return token.is_symbol(known); });
}

/// Comparisons as the dialect means them: a text beside something that is no column knows no collation of its
/// own, and `<> null` asks whether there is a value.
Tokens Translate_comparisons(const Tokens &from) {
    Tokens to;
    for (size_t place = 0; place < from.size(); ++place) {
        const bool compared = place >= 2 && Is_comparison(from[place - 1]);
        if (compared && from[place].is_word("null") && from[place - 1].is_symbol("<>")) {
            to.back() = {Kind::engine, "IS NOT"};
            to.push_back({Kind::engine, "NULL"});
            continue;
        }
        to.push_back(from[place]);
        const bool is_column =
            place >= 2 && (from[place - 2].kind == Kind::word || from[place - 2].kind == Kind::engine);
        if (compared && from[place].kind == Kind::text && !is_column)
            to.push_back({Kind::engine, QString("COLLATE ") + text_collation});
    }
    return to;
}

/// "select top 5 ..." says first what the engine wants last.
Tokens Translate_top(const Tokens &from) {
    const bool has_top = from.size() > 3 && from[0].is_word("select") && from[1].is_word("top") &&
                         from[2].kind == Kind::number;
    if (!has_top)
        return from;
    Tokens to = {from[0]};
    to.insert(to.end(), from.begin() + 3, from.end());
    to.push_back({Kind::engine, "LIMIT"});
    to.push_back(from[2]);
    return to;
}

} // namespace

QString Translate_statement(const QString &sql) {
    Tokens tokens = Tokenizer(sql).all();
    while (!tokens.empty() && tokens.back().is_symbol(";"))
        tokens.pop_back();
    if (std::any_of(tokens.begin(), tokens.end(), [](const Token &token) { return token.is_symbol(";"); }))
        Refuse("Characters found after end of SQL statement.");
    if (tokens.empty())
        Refuse("There is no statement.");
    if (tokens[0].is_word("create"))
        return Write(Translate_create(tokens));
    if (tokens[0].is_word("alter"))
        return Write(Translate_alter(tokens));
    return Write(Translate_top(Translate_comparisons(tokens)));
}

} // namespace vantrosk
