// Groups a DXF file's tags into sections and records (entities, objects, table entries,
// header variables), with point coordinates gathered.
#pragma once

#include "host/dxf/DxfTagReader.h"

#include <string_view>
#include <vector>

// One tag of a record, or one point made of an x tag and the y (and z) tags right after it.
struct DxfItem {
    DxfTag tag;          // the tag; for a point its x tag (code 10, 11, 1010, ...)
    bool isPoint = false;
    DxfPoint point;      // valid when isPoint
};

// A record: in the HEADER section a variable (9/$NAME and its values), elsewhere everything
// from one 0 tag up to the next.
struct DxfRecord {
    DxfTag head;                 // 0/LINE, 0/LAYER, 9/$ACADVER, ...
    std::vector<DxfItem> items;  // what follows the head, in file order

    std::string_view type() const noexcept { return head.value; }
    // The first item with the code (for points: the x code), or null.
    const DxfItem* find(int code) const noexcept;
};

struct DxfSection {
    std::string_view name;  // "HEADER", "ENTITIES", ...
    std::size_t line = 0;   // line of its 0/SECTION
};

class DxfTagRecordReader {
public:
    explicit DxfTagRecordReader(DxfTagReader& tags) : m_tags(tags) {}

    // Enters the next section (skipping what is left of the current one). False at 0/EOF or
    // at the end of the data; DxfError for anything but 0/SECTION followed by 2/<name>.
    bool nextSection(DxfSection& section);
    // The next record of the current section; false once its 0/ENDSEC is read. Outside a
    // section, records run from one 0 tag to the next until 0/EOF or the end of the data.
    // The record's vector keeps its capacity, so reading into the same record doesn't allocate.
    bool nextRecord(DxfRecord& record);
    // Skips to the end of the current section.
    void skipSection();

    bool inSection() const noexcept { return m_inSection; }

private:
    void readItems(DxfRecord& record, bool header);
    [[noreturn]] void failAtEnd(std::string_view expected) const;

    DxfTagReader& m_tags;
    bool m_inSection = false;
    bool m_inHeader = false;
};
