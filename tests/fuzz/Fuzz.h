#pragma once

#include <QByteArray>

#include <vector>

namespace vantrosk {

// What a target of the fuzzer tells; fuzz_main.cpp runs it.

/// Feeds one input to the reader under test; aborts when something that must hold does not.
void Fuzz_one(const QByteArray &bytes);
/// Good inputs to begin with.
std::vector<QByteArray> Fuzz_seeds();
/// Pieces that the format gives a meaning, to be put in anywhere.
std::vector<QByteArray> Fuzz_pieces();

} // namespace vantrosk
