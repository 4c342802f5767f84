// Message boxes: the headless recorder's answers and record, and the sink.
#include <gtest/gtest.h>

#include "host/win/WinMessageBox.h"

namespace {

class WinMessageBox : public ::testing::Test {
protected:
    void SetUp() override
    {
        MessageBoxClearHistory();
        MessageBoxClearAnswers();
    }
};

TEST_F(WinMessageBox, HeadlessAnswersChangeNothing)
{
    const struct {
        UINT type;
        int answer;
    } rows[] = {
        {MB_OK | MB_ICONINFORMATION, IDOK},  {MB_OKCANCEL, IDCANCEL},       {MB_YESNO | MB_ICONQUESTION, IDNO},
        {MB_YESNOCANCEL, IDCANCEL},          {MB_RETRYCANCEL, IDCANCEL},    {MB_ABORTRETRYIGNORE, IDABORT},
    };
    for (const auto& r : rows) EXPECT_EQ(MessageBoxW(nullptr, L"?", L"Sorvane", r.type), r.answer) << r.type;
    EXPECT_EQ(MessageBoxHistory().size(), std::size(rows));
}

TEST_F(WinMessageBox, ScriptedAnswersGoToQuestionsInOrder)
{
    MessageBoxPushAnswer(IDYES);
    MessageBoxPushAnswer(IDCANCEL);
    EXPECT_EQ(MessageBox(nullptr, L"Info", L"", MB_OK), IDOK);   // takes no scripted answer
    EXPECT_EQ(MessageBox(nullptr, L"Ganze Zeichnung konvertieren?", L"Sorvane", MB_YESNO), IDYES);
    EXPECT_EQ(MessageBox(nullptr, L"Weiter?", L"Sorvane", MB_YESNOCANCEL), IDCANCEL);
    EXPECT_EQ(MessageBox(nullptr, L"Nochmal?", L"Sorvane", MB_YESNO), IDNO);

    const auto history = MessageBoxHistory();
    ASSERT_EQ(history.size(), 4u);
    EXPECT_EQ(history[1].text, L"Ganze Zeichnung konvertieren?");
    EXPECT_EQ(history[1].caption, L"Sorvane");
    EXPECT_EQ(history[1].type, UINT(MB_YESNO));
    EXPECT_EQ(history[1].answer, IDYES);
    EXPECT_EQ(history[3].answer, IDNO);
}

TEST_F(WinMessageBox, NullTextsAreShownAsWindowsDoes)
{
    MessageBoxW(nullptr, nullptr, nullptr, MB_OK);
    const auto history = MessageBoxHistory();
    ASSERT_EQ(history.size(), 1u);
    EXPECT_EQ(history[0].text, L"");
    EXPECT_EQ(history[0].caption, L"Error");
}

TEST_F(WinMessageBox, ReplaceableSink)
{
    struct Sink : IMessageBoxSink {
        int Show(HWND, const std::wstring& text, const std::wstring&, UINT) override
        {
            last = text;
            return IDRETRY;
        }
        std::wstring last;
    } sink;
    IMessageBoxSink* pOld = SetMessageBoxSink(&sink);
    EXPECT_EQ(MessageBoxW(nullptr, L"x", L"c", MB_RETRYCANCEL), IDRETRY);
    EXPECT_EQ(sink.last, L"x");
    EXPECT_TRUE(MessageBoxHistory().empty());
    SetMessageBoxSink(nullptr);
    EXPECT_EQ(GetMessageBoxSink(), pOld);
    EXPECT_EQ(MessageBoxW(nullptr, L"y", L"c", MB_OK), IDOK);
    EXPECT_EQ(MessageBoxHistory().size(), 1u);
}

} // namespace
