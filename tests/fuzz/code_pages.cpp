#include "readme/Code_Pages.h"

#include "fuzz/Fuzz.h"

#include <array>
#include <cstdlib>

namespace vantrosk {

namespace {

constexpr std::array<int, 20> pages{1250, 1251, 1252, 1253,  1254,  1255, 1256, 1257, 1258, 437,
                                    850,  852,  866,  10000, 65001, 932,  936,  949,  950,  54936};

} // namespace

/// The first byte chooses a page. Whatever the others are, the text is no longer than they are and holds no
/// half character.
void Fuzz_one(const QByteArray &bytes) {
    if (bytes.isEmpty())
        return;
    const auto page = pages[static_cast<unsigned char>(bytes[0]) % pages.size()];
    const QString text = Text_of_code_page(bytes.mid(1), page);
    if (text.size() > bytes.size() || !text.isValidUtf16())
        std::abort();
}

std::vector<QByteArray> Fuzz_seeds() {
    std::vector<QByteArray> seeds;
    for (std::size_t page = 0; page < pages.size(); ++page)
        seeds.push_back(static_cast<char>(page) +
                        QByteArray("abc \x93\x90\x91\xaf \x81\x30\x81\x30 \xC4\x8D\xF0\x9F\x98\x80"));
    return seeds;
}

std::vector<QByteArray> Fuzz_pieces() {
    return {"\x81",         "\xfe\xfe", "\x80", "\xff", "\x81\x30\x81\x30", "\x95\x5c", "\xF0\x9F\x98",
            "\xED\xA0\x80", "\x1b$B",   "~{",   "\x0e", QByteArray(1, '\0')};
}

} // namespace vantrosk
