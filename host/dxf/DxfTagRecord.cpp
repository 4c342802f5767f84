// Sections and records of a DXF file, on top of the tag reader.
#include "host/dxf/DxfTagRecord.h"

namespace {

bool is(const DxfTag& tag, int code, std::string_view value) noexcept
{
    if (tag.code != code)
        return false;
    std::string_view v = tag.value;
    while (!v.empty() && (v.back() == ' ' || v.back() == '\t'))
        v.remove_suffix(1);
    while (!v.empty() && (v.front() == ' ' || v.front() == '\t'))
        v.remove_prefix(1);
    return v == value;
}

} // namespace

const DxfItem* DxfRecord::find(int code) const noexcept
{
    for (const DxfItem& item : items)
        if (item.tag.code == code)
            return &item;
    return nullptr;
}

void DxfTagRecordReader::failAtEnd(std::string_view expected) const
{
    throw m_tags.error(m_tags.line() + 1,
                       "expected " + std::string(expected) + ", found the end of the file");
}

bool DxfTagRecordReader::nextSection(DxfSection& section)
{
    if (m_inSection)
        skipSection();
    DxfTag tag;
    if (!m_tags.next(tag) || is(tag, 0, "EOF"))
        return false;
    if (!is(tag, 0, "SECTION"))
        throw m_tags.expected(tag.line, "0/SECTION or 0/EOF", tag.describe());
    const std::size_t line = tag.line;
    if (!m_tags.next(tag))
        failAtEnd("2/<section name> after 0/SECTION");
    if (tag.code != 2)
        throw m_tags.expected(tag.line, "2/<section name> after 0/SECTION", tag.describe());
    section.name = tag.value;
    section.line = line;
    m_inSection = true;
    m_inHeader = is(tag, 2, "HEADER");
    return true;
}

bool DxfTagRecordReader::nextRecord(DxfRecord& record)
{
    record.items.clear();
    DxfTag& head = record.head;
    if (!m_tags.next(head)) {
        if (m_inSection)
            failAtEnd("0/ENDSEC");
        return false;
    }
    if (m_inSection) {
        if (is(head, 0, "ENDSEC")) {
            m_inSection = m_inHeader = false;
            return false;
        }
        if (is(head, 0, "EOF") || is(head, 0, "SECTION"))
            throw m_tags.expected(head.line, "0/ENDSEC", head.describe());
    } else if (is(head, 0, "EOF")) {
        return false;
    }
    const int headCode = m_inHeader ? 9 : 0;
    if (head.code != headCode)
        throw m_tags.expected(head.line,
                              m_inHeader ? "9/<variable name>" : "a 0 group code opening a record",
                              head.describe());
    readItems(record, m_inHeader);
    return true;
}

void DxfTagRecordReader::readItems(DxfRecord& record, bool header)
{
    DxfTag tag;
    while (m_tags.next(tag)) {
        if (tag.code == 0 || (header && tag.code == 9)) {
            m_tags.unget();
            return;
        }
        DxfItem& item = record.items.emplace_back();
        item.tag = tag;
        item.isPoint = false;
        if (!dxfIsPointCode(tag.code))
            continue;
        DxfTag y;
        if (!m_tags.next(y))
            return;
        if (y.code != dxfPointYCode(tag.code)) {
            m_tags.unget();
            continue;
        }
        item.isPoint = true;
        item.point = DxfPoint{tag.asDouble(), y.asDouble(), 0.0, false};
        const int zCode = dxfPointZCode(tag.code);
        DxfTag z;
        if (zCode < 0 || !m_tags.next(z))
            continue;
        if (z.code == zCode) {
            item.point.z = z.asDouble();
            item.point.hasZ = true;
        } else {
            m_tags.unget();
        }
    }
}

void DxfTagRecordReader::skipSection()
{
    DxfTag tag;
    while (m_inSection) {
        if (!m_tags.next(tag))
            failAtEnd("0/ENDSEC");
        if (is(tag, 0, "ENDSEC"))
            m_inSection = m_inHeader = false;
        else if (is(tag, 0, "EOF"))
            throw m_tags.expected(tag.line, "0/ENDSEC", tag.describe());
    }
}
