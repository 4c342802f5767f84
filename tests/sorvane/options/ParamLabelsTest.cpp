// Labels, descriptions and file choice of keys from DimParam.ini, the maps of
// each mode, and the two options the text primitive reads by member name.
#include <gtest/gtest.h>

#include "options/GlobDimOptions.h"

TEST(ParamLabels, FromTheParameterDescriptions)
{
    struct SRow {
        const wchar_t* key;
        const wchar_t* entry;  // null: no entry
        const wchar_t* label;
        const wchar_t* description;
        BOOL inOptionsFile;
    };
    const SRow rows[] = {
        {L"TextHeight", L"1Texthöhe;Höhe der Maßzahl", L"Texthöhe", L"Höhe der Maßzahl", TRUE},
        {L"Scale", L"0Maßstab;Zeichnungsmaßstab", L"Maßstab", L"Zeichnungsmaßstab", FALSE},
        {L"Measure", L"1Einheiten", L"Measure", L"Einheiten", TRUE},
        {L"Decimals", L"Stellen;Nachkommastellen", L"Stellen", L"Nachkommastellen", FALSE},
        {L"RoundMM", L"Runden", L"RoundMM", L"Runden", FALSE},
        {L"ExtLine", L"2;", L"", L"", TRUE},
        {L"TickSize", nullptr, L"TickSize", L"", FALSE},
    };
    CGlobDimOptions options;
    options.m_strIniFile = L"/u/Sorvane.ini";
    options.m_strCurOptionsFile = L"/p/Projekt.ini";
    for (const SRow& row : rows) {
        if (row.entry)
            options.mapParams.SetAt(row.key, row.entry);
    }
    for (const SRow& row : rows) {
        SCOPED_TRACE(CString(row.key).ToUtf8());
        EXPECT_EQ(options.GetParamLabel(row.key), CString(row.label));
        EXPECT_EQ(options.GetParamDescription(row.key), CString(row.description));
        EXPECT_EQ(options.IsInOptionsFile(row.key), row.inOptionsFile);
        EXPECT_EQ(options.GetParamFile(row.key), row.inOptionsFile ? options.m_strCurOptionsFile : options.m_strIniFile);
    }
}

TEST(ParamLabels, TextBackgroundViews)
{
    CGlobDimOptions options;
    EXPECT_FALSE(options.m_bWipeOut);
    options.m_bWipeOut = TRUE;
    EXPECT_EQ(options.arrayOptInt[kOptIntWipeOut], 1u);
    options.arrayOptInt[kOptIntWipeOut] = 0;
    EXPECT_FALSE(options.m_bWipeOut);

    EXPECT_EQ(static_cast<DWORD>(options.m_dwBackgroundColor), 0xFFFFFFu);  // white until the editor tells
    options.m_dwBackgroundColor = 0x203040;
    EXPECT_EQ(options.m_colorBackground.red(), 0x20);
    EXPECT_EQ(options.m_colorBackground.blue(), 0x40);
    EXPECT_EQ(static_cast<DWORD>(options.m_dwBackgroundColor), 0x203040u);
}
