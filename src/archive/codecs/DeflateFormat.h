#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

// What DEFLATE's numbers mean (RFC 1951), and those of Deflate64 where they differ.
namespace pellumar::archive {

// Block types (3.2.3).
inline constexpr unsigned kStoredBlock = 0;
inline constexpr unsigned kFixedBlock = 1;
inline constexpr unsigned kDynamicBlock = 2;

// Symbols of the literal and length code: 256 bytes, the end of the block, and the lengths.
inline constexpr std::uint16_t kEndOfBlock = 256;
inline constexpr std::size_t kFirstLength = 257;
// With those that stand for nothing but take part in the fixed code.
inline constexpr std::size_t kLiteralSymbols = 288;

inline constexpr std::size_t kDeflateDistances = 30;
inline constexpr std::size_t kDeflate64Distances = 32;

// A length or distance is `base` plus the number in the `bits` behind its code (3.2.5).
struct DeflateRange {
    std::uint32_t base;
    std::uint8_t bits;
};

inline constexpr std::array<DeflateRange, 29> kLengthRanges{
    {{3, 0},  {4, 0},  {5, 0},  {6, 0},   {7, 0},   {8, 0},   {9, 0},   {10, 0},  {11, 1}, {13, 1},
     {15, 1}, {17, 1}, {19, 2}, {23, 2},  {27, 2},  {31, 2},  {35, 3},  {43, 3},  {51, 3}, {59, 3},
     {67, 4}, {83, 4}, {99, 4}, {115, 4}, {131, 5}, {163, 5}, {195, 5}, {227, 5}, {258, 0}}};
// What the last of them means in Deflate64.
inline constexpr DeflateRange kDeflate64LongLength{3, 16};

// The last two are Deflate64's alone.
inline constexpr std::array<DeflateRange, kDeflate64Distances> kDistanceRanges{
    {{1, 0},      {2, 0},      {3, 0},      {4, 0},     {5, 1},     {7, 1},     {9, 2},
     {13, 2},     {17, 3},     {25, 3},     {33, 4},    {49, 4},    {65, 5},    {97, 5},
     {129, 6},    {193, 6},    {257, 7},    {385, 7},   {513, 8},   {769, 8},   {1025, 9},
     {1537, 9},   {2049, 10},  {3073, 10},  {4097, 11}, {6145, 11}, {8193, 12}, {12289, 12},
     {16385, 13}, {24577, 13}, {32769, 14}, {49153, 14}}};

// Code lengths of blocks with fixed codes (3.2.6). The last literals and, in DEFLATE, the last
// distances stand for nothing, but take part in the code.
inline constexpr auto kFixedLiteralLengths = [] {
    std::array<std::uint8_t, kLiteralSymbols> lengths{};
    for (std::size_t symbol = 0; symbol < lengths.size(); ++symbol) {
        if (symbol < 144 || symbol >= 280) {
            lengths[symbol] = 8;
        } else {
            lengths[symbol] = symbol < 256 ? 9 : 7;
        }
    }
    return lengths;
}();
inline constexpr auto kFixedDistanceLengths = [] {
    std::array<std::uint8_t, kDeflate64Distances> lengths{};
    lengths.fill(5);
    return lengths;
}();

}  // namespace pellumar::archive
