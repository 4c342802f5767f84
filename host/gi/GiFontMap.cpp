// The font name table: platform font names to Liberation files.
#include "host/gi/GiFontMap.h"

#include <cwctype>

namespace {

enum Family { kSans, kSerif, kMono };

const char* variantFile(Family family, bool bold, bool italic)
{
    static const char* const kVariants[3][4] = {
        {"LiberationSans-Regular.ttf", "LiberationSans-Bold.ttf", "LiberationSans-Italic.ttf",
         "LiberationSans-BoldItalic.ttf"},
        {"LiberationSerif-Regular.ttf", "LiberationSerif-Bold.ttf", "LiberationSerif-Italic.ttf",
         "LiberationSerif-BoldItalic.ttf"},
        {"LiberationMono-Regular.ttf", "LiberationMono-Bold.ttf", "LiberationMono-Italic.ttf",
         "LiberationMono-BoldItalic.ttf"},
    };
    return kVariants[family][(bold ? 1 : 0) + (italic ? 2 : 0)];
}

struct FileEntry {
    const wchar_t* name;
    Family family;
    bool bold;
    bool italic;
};

// File names without extension. Stroke fonts all draw as Liberation Sans Regular: they have
// no outline of their own here, and Sans is closest to their plain drafting shapes.
constexpr FileEntry kFiles[] = {
    {L"arial", kSans, false, false},       {L"arialbd", kSans, true, false},
    {L"ariali", kSans, false, true},       {L"arialbi", kSans, true, true},
    {L"arialn", kSans, false, false},      {L"helvetica", kSans, false, false},
    {L"times", kSerif, false, false},      {L"timesnr", kSerif, false, false},
    {L"timesbd", kSerif, true, false},     {L"timesi", kSerif, false, true},
    {L"timesbi", kSerif, true, true},      {L"cour", kMono, false, false},
    {L"courbd", kMono, true, false},       {L"couri", kMono, false, true},
    {L"courbi", kMono, true, true},        {L"courier", kMono, false, false},
    {L"liberationsans-regular", kSans, false, false},
    {L"liberationsans-bold", kSans, true, false},
    {L"liberationsans-italic", kSans, false, true},
    {L"liberationsans-bolditalic", kSans, true, true},
    {L"liberationserif-regular", kSerif, false, false},
    {L"liberationserif-bold", kSerif, true, false},
    {L"liberationserif-italic", kSerif, false, true},
    {L"liberationserif-bolditalic", kSerif, true, true},
    {L"liberationmono-regular", kMono, false, false},
    {L"liberationmono-bold", kMono, true, false},
    {L"liberationmono-italic", kMono, false, true},
    {L"liberationmono-bolditalic", kMono, true, true},
    // stroke fonts
    {L"txt", kSans, false, false},         {L"monotxt", kSans, false, false},
    {L"simplex", kSans, false, false},     {L"complex", kSans, false, false},
    {L"italic", kSans, false, false},      {L"italicc", kSans, false, false},
    {L"italict", kSans, false, false},     {L"romans", kSans, false, false},
    {L"romand", kSans, false, false},      {L"romanc", kSans, false, false},
    {L"romant", kSans, false, false},      {L"scripts", kSans, false, false},
    {L"scriptc", kSans, false, false},     {L"greeks", kSans, false, false},
    {L"greekc", kSans, false, false},      {L"isocp", kSans, false, false},
    {L"isocp2", kSans, false, false},      {L"isocp3", kSans, false, false},
    {L"isoct", kSans, false, false},       {L"isoct2", kSans, false, false},
    {L"isoct3", kSans, false, false},      {L"isocpeur", kSans, false, false},
    {L"isocteur", kSans, false, false},    {L"gdt", kSans, false, false},
    {L"amgdt", kSans, false, false},       {L"gothice", kSans, false, false},
    {L"gothicg", kSans, false, false},     {L"gothici", kSans, false, false},
    {L"syastro", kSans, false, false},     {L"symath", kSans, false, false},
    {L"symusic", kSans, false, false},     {L"bigfont", kSans, false, false},
};

struct FaceEntry {
    const wchar_t* name;
    Family family;
};

constexpr FaceEntry kFaces[] = {
    {L"arial", kSans},
    {L"helvetica", kSans},
    {L"liberationsans", kSans},
    {L"sansserif", kSans},
    {L"timesnewroman", kSerif},
    {L"times", kSerif},
    {L"liberationserif", kSerif},
    {L"serif", kSerif},
    {L"couriernew", kMono},
    {L"courier", kMono},
    {L"liberationmono", kMono},
    {L"monospace", kMono},
};

// Lower case, without folder, without extension.
std::wstring fileKey(std::wstring_view name)
{
    const auto slash = name.find_last_of(L"/\\");
    if (slash != std::wstring_view::npos)
        name.remove_prefix(slash + 1);
    std::wstring key;
    for (wchar_t c : name)
        key += static_cast<wchar_t>(std::towlower(static_cast<wint_t>(c)));
    for (const wchar_t* ext : {L".ttf", L".ttc", L".otf", L".shx", L".pfb"}) {
        const std::wstring_view e(ext);
        if (key.size() > e.size() && key.compare(key.size() - e.size(), e.size(), e) == 0) {
            key.resize(key.size() - e.size());
            break;
        }
    }
    return key;
}

// Lower case without blanks, so "Times New Roman" and "TimesNewRoman" meet.
std::wstring faceKey(std::wstring_view name)
{
    std::wstring key;
    for (wchar_t c : name)
        if (!std::iswspace(static_cast<wint_t>(c)) && c != L'-' && c != L'_')
            key += static_cast<wchar_t>(std::towlower(static_cast<wint_t>(c)));
    return key;
}

}  // namespace

GiFontChoice giMapFont(std::wstring_view fileName, std::wstring_view typeface, bool bold, bool italic)
{
    const std::wstring face = faceKey(typeface);
    if (!face.empty()) {
        for (const FaceEntry& e : kFaces)
            if (face == e.name)
                return {variantFile(e.family, bold, italic), true};
        return {kGiFallbackFontFile, false};
    }
    const std::wstring key = fileKey(fileName);
    if (key.empty())
        return {kGiFallbackFontFile, true};  // no font named: the default style's txt
    for (const FileEntry& e : kFiles)
        if (key == e.name)
            return {variantFile(e.family, e.bold, e.italic), true};
    return {kGiFallbackFontFile, false};
}
