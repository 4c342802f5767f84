// CTime and CTimeSpan formatting, CFile's static operations, CFileFind and
// AfxMessageBox.
#include <gtest/gtest.h>

#include <unistd.h>

#include <string>
#include <vector>

#include "host/mfc/AfxMessageBox.h"
#include "host/mfc/CFile.h"
#include "host/mfc/CTime.h"
#include "tests/host/win/TempFolder.h"

namespace {

TEST(CTime, FormatsLocalTime)
{
    const CTime t(2024, 3, 5, 7, 8, 9);
    const struct {
        const wchar_t* fmt;
        const wchar_t* out;
    } rows[] = {
        {L"%H:%M:%S", L"07:08:09"},
        {L"%d.%m.%Y", L"05.03.2024"},
        {L"%#d.%#m.%y", L"5.3.24"},
        {L"<%H%%>", L"<07%>"},
        {L"", L""},
    };
    for (const auto& r : rows) EXPECT_EQ(t.Format(r.fmt), CString(r.out)) << r.out;
    EXPECT_EQ(t.GetYear(), 2024);
    EXPECT_EQ(t.GetMonth(), 3);
    EXPECT_EQ(t.GetDay(), 5);
    EXPECT_EQ(t.GetHour(), 7);
    EXPECT_EQ(t.GetMinute(), 8);
    EXPECT_EQ(t.GetSecond(), 9);
    EXPECT_EQ(t.GetDayOfWeek(), 3);   // a Tuesday
    EXPECT_EQ(CTime(0).FormatGmt(L"%Y-%m-%d %H:%M"), CString(L"1970-01-01 00:00"));
}

TEST(CTime, InvalidTimeFormatsAsSuch)
{
    for (const CTime& t : {CTime(-1), CTime(2024, 13, 1, 0, 0, 0), CTime(2024, 1, 1, 24, 0, 0)}) {
        EXPECT_FALSE(t.IsValid());
        EXPECT_EQ(t.Format(L"%H:%M:%S"), CString(L"Invalid DateTime"));
        try {
            (void)t.GetYear();
            ADD_FAILURE() << "no exception";
        } catch (CInvalidArgException* e) {
            e->Delete();
        }
    }
}

TEST(CTime, SpansAndArithmetic)
{
    const CTimeSpan span(1, 2, 3, 4);
    EXPECT_EQ(span.GetTotalSeconds(), 93784);
    EXPECT_EQ(span.Format(L"%D %H:%M:%S"), CString(L"1 02:03:04"));
    const CTime a(2024, 3, 5, 7, 8, 9);
    EXPECT_EQ((a + span) - a, span);
    EXPECT_LT(a, a + CTimeSpan(1));
    const CTime now = CTime::GetCurrentTime();
    EXPECT_GE(now.GetYear(), 2024);
}

TEST(CFile, RemoveAndRenameThrowOnFailure)
{
    TempFolder tmp;
    tmp.Write("a.log", "x");
    CFile::Rename(CString(tmp.Wide("A.LOG").c_str()), CString(tmp.Wide("b.log").c_str()));
    EXPECT_EQ(tmp.Read("b.log").value_or(""), "x");
    CFile::Remove(CString(tmp.Wide("B.log").c_str()));
    EXPECT_FALSE(tmp.Read("b.log").has_value());

    const CString missing(tmp.Wide("b.log").c_str());
    try {
        CFile::Remove(missing);
        ADD_FAILURE() << "no exception";
    } catch (CFileException* e) {
        EXPECT_EQ(e->m_cause, CFileException::fileNotFound);
        EXPECT_EQ(e->m_lOsError, LONG(ERROR_FILE_NOT_FOUND));
        EXPECT_EQ(e->m_strFileName, missing);
        e->Delete();
    }
    try {
        CFile::Rename(missing, CString(tmp.Wide("c.log").c_str()));
        ADD_FAILURE() << "no exception";
    } catch (CException* e) {   // caught as the base, as module code does
        e->Delete();
    }

    CFileStatus status;
    tmp.Write("s.txt", "12345");
    ASSERT_TRUE(CFile::GetStatus(CString(tmp.Wide("S.TXT").c_str()), status));
    EXPECT_EQ(status.m_size, 5u);
    EXPECT_EQ(std::wstring(status.m_szFullName), std::wstring(tmp.Path().begin(), tmp.Path().end()) + L"/s.txt");
    EXPECT_FALSE(CFile::GetStatus(missing, status));
}

TEST(CFileFind, WalksMatchesWithTheirDiskSpelling)
{
    TempFolder tmp;
    for (const char* name : {"Plan.DWG", "a.dwg", "plan.bak", "Sub/x.dwg"}) tmp.Write(name, "12");
    std::vector<CString> found;
    CFileFind ff;
    for (BOOL b = ff.FindFile(CString((tmp.Wide() + L"\\*.dwg").c_str())); b;) {
        b = ff.FindNextFile();
        found.push_back(ff.GetFileName() + L"|" + ff.GetFileTitle());
        EXPECT_FALSE(ff.IsDirectory());
        EXPECT_EQ(ff.GetLength(), 2u);
        EXPECT_EQ(ff.GetFilePath(), CString(tmp.Wide().c_str()) + L"\\" + ff.GetFileName());
    }
    EXPECT_EQ(found, (std::vector<CString>{L"a.dwg|a", L"Plan.DWG|Plan"}));

    // One exact name gives its spelling on disk.
    ASSERT_TRUE(ff.FindFile(CString(tmp.Wide("PLAN.dwg").c_str())));
    EXPECT_FALSE(ff.FindNextFile());
    EXPECT_EQ(ff.GetFileName(), CString(L"Plan.DWG"));

    // "*" brings the dots and folders.
    int dots = 0, dirs = 0;
    for (BOOL b = ff.FindFile(CString(tmp.Wide("*").c_str())); b;) {
        b = ff.FindNextFile();
        dots += ff.IsDots();
        dirs += ff.IsDirectory() && !ff.IsDots();
    }
    EXPECT_EQ(dots, 2);
    EXPECT_EQ(dirs, 1);

    EXPECT_FALSE(ff.FindFile(CString(tmp.Wide("*.none").c_str())));
    EXPECT_FALSE(ff.FindNextFile());
    EXPECT_EQ(ff.GetFileName(), CString());
}

TEST(CFileFind, RelativePatternGetsAbsoluteRoot)
{
    TempFolder tmp;
    tmp.Write("r.ini", "");
    char old[4096];
    ASSERT_NE(::getcwd(old, sizeof old), nullptr);
    ASSERT_EQ(::chdir(tmp.Path().c_str()), 0);
    CFileFind ff;
    ASSERT_TRUE(ff.FindFile(L"*.INI"));
    ff.FindNextFile();
    EXPECT_EQ(ff.GetFilePath(), CString::FromUtf8(tmp.Path() + "/r.ini"));
    ff.Close();
    ASSERT_EQ(::chdir(old), 0);
}

TEST(AfxMessageBox, RecordsTextCaptionAndStringTableEntries)
{
    MessageBoxClearHistory();
    MessageBoxClearAnswers();
    AfxSetAppName(L"Sorvane");
    auto previous = CString::SetStringTableHook([](UINT id, CString& text) {
        if (id != 32900) return false;
        text = L"Ganze Zeichnung konvertieren?";
        return true;
    });
    EXPECT_EQ(AfxMessageBox(L"Ungültige Sorvane-INI-Datei!"), IDOK);
    EXPECT_EQ(AfxMessageBox(32900, MB_YESNO | MB_ICONQUESTION), IDNO);
    MessageBoxPushAnswer(IDYES);
    EXPECT_EQ(AfxMessageBox(32900, MB_YESNO), IDYES);
    EXPECT_EQ(AfxMessageBox(1), IDOK);   // unknown id: an empty box
    CString::SetStringTableHook(previous);
    AfxSetAppName(L"");

    const auto history = MessageBoxHistory();
    ASSERT_EQ(history.size(), 4u);
    EXPECT_EQ(history[0].text, L"Ungültige Sorvane-INI-Datei!");
    EXPECT_EQ(history[0].caption, L"Sorvane");
    EXPECT_EQ(history[1].text, L"Ganze Zeichnung konvertieren?");
    EXPECT_EQ(history[1].type, UINT(MB_YESNO | MB_ICONQUESTION));
    EXPECT_EQ(history[3].text, L"");
}

} // namespace
