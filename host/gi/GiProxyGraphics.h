// The platform's proxy-graphics format: the picture of a custom entity as bytes, so that a
// reader without the entity's code can still draw it.
//
// Layout (little-endian; RL a 32-bit integer, RD a 64-bit double, 3RD three RDs, PUS a UTF-16LE
// string ending in two zero bytes and padded with zeros to a multiple of 4 bytes):
//   header   RL total size in bytes (header included), RL number of records
//   record   RL record size in bytes (these 8 included), RL type, then the type's data:
//     1  extents            3RD min, 3RD max
//     2  circle             3RD centre, RD radius, 3RD normal
//     3  circle by 3 points 3RD, 3RD, 3RD
//     4  circular arc       3RD centre, RD radius, 3RD normal, 3RD start vector, RD sweep,
//                           RL arc type (0 simple, 1 sector, 2 chord)
//     5  arc by 3 points    3RD start, 3RD point, 3RD end, RL arc type
//     6  polyline           RL n, n x 3RD
//     7  polygon            RL n, n x 3RD
//    12  xline, 13 ray      3RD, 3RD
//    14  colour             RL index (0 ByBlock, 256 ByLayer)
//    16  layer              RL index into the drawing's layer table
//    18  linetype           RL index into the drawing's linetype table
//    19  selection marker   RL
//    20  fill               RL 1 on, 0 off
//    22  true colour        RL method << 24 | RGB (method 0xC2 RGB, 0xC3 index, 0xC0, 0xC1)
//    23  line weight        RL (hundredths of a millimetre, negative for ByLayer...)
//    24  linetype scale     RD
//    25  thickness          RD
//    29  push matrix        16 RD, row by row; 31 pop matrix
//    32  polyline + normal  RL n, n x 3RD, 3RD normal
//    36  text               3RD position, 3RD normal, 3RD direction, RD height, RD width
//                           factor, RD oblique, PUS text
//    38  text with style    3RD position, 3RD normal, 3RD direction, PUS text, RL length,
//                           RL raw, RD height, RD width factor, RD oblique, RD tracking,
//                           RL backward, RL upside down, RL vertical, RL underline,
//                           RL overline, RL bold, RL italic, RL charset, RL pitch and family,
//                           PUS typeface, PUS font file, PUS big font file
// Attribute records change the state for the records that follow. The reader also takes the
// 8-bit text records 10 and 11 (UTF-8 text) and skips types it does not know.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "host/gi/AcGiWorldDraw.h"
#include "host/gi/GiDisplayList.h"

struct GiProxyEncodeOptions {
    // Table indexes of layers and linetypes; without a function the key itself is written.
    std::function<std::uint32_t(AcGiLayerKey)> layerIndex;
    std::function<std::uint32_t(AcGiLinetypeKey)> linetypeIndex;
};

struct GiProxyDecodeOptions {
    // Keys of table indexes; without a function the index itself is the key.
    std::function<AcGiLayerKey(std::uint32_t)> layerKey;
    std::function<AcGiLinetypeKey(std::uint32_t)> linetypeKey;
};

// The bytes of a display list (normally one recorded with kAcGiSaveWorldDrawForProxy).
// Every primitive's traits are written before it when they differ from the state so far;
// the fill is written before every filled primitive, since some readers reset it after each.
// A polyline's per-segment markers are not part of the format; its trait marker is kept.
std::vector<std::uint8_t> giEncodeProxyGraphics(const GiDisplayList& list,
                                                const GiProxyEncodeOptions& options = {});

// Plays the bytes into a world draw: traits to its sub-entity traits, primitives to its
// geometry. false with *error (naming the record and its byte offset) on malformed data;
// what came before the fault has been drawn.
bool giDrawProxyGraphics(const std::uint8_t* data, std::size_t size, AcGiWorldDraw& draw,
                         std::string* error = nullptr, const GiProxyDecodeOptions& options = {});

// The same into a fresh display list.
bool giDecodeProxyGraphics(const std::vector<std::uint8_t>& bytes, GiDisplayList& out,
                           std::string* error = nullptr, const GiProxyDecodeOptions& options = {});
