// Model space to SVG, PDF or PNG through the database's renderer.
#include "host/ap/ApExport.h"

#include "host/ap/ApText.h"
#include "host/db/AcDbRender.h"
#include "host/win/WinText.h"

bool apExportFormat(const std::wstring& path, GiOutputFormat& format)
{
    const size_t dot = path.find_last_of(L'.');
    if (dot == std::wstring::npos)
        return false;
    const std::wstring ext = path.substr(dot + 1);
    if (svwin::EqualNoCase(ext, L"svg"))
        format = GiOutputFormat::kSvg;
    else if (svwin::EqualNoCase(ext, L"pdf"))
        format = GiOutputFormat::kPdf;
    else if (svwin::EqualNoCase(ext, L"png"))
        format = GiOutputFormat::kPng;
    else
        return false;
    return true;
}

bool apExportModelSpace(AcDbDatabase* db, const std::wstring& path, std::wstring& error)
{
    AcDbRenderOptions options;
    if (!apExportFormat(path, options.format)) {
        error = L"cannot export " + path + L": the file must end in .svg, .pdf or .png";
        return false;
    }
    if (!db) {
        error = L"cannot export " + path + L": no drawing is open";
        return false;
    }
    std::string why;
    if (acdbRenderDatabaseToFile(db, options, apText::utf8(path), &why) != Acad::eOk) {
        error = L"cannot export " + path + L": " + apText::wide(why);
        return false;
    }
    return true;
}
