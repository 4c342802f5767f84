// The message box sink and the headless recorder behind it.
#include "host/win/WinMessageBox.h"

#include <atomic>
#include <deque>
#include <mutex>

#include "host/win/wsprintf.h"

namespace {

class CHeadlessMessageBoxes : public IMessageBoxSink {
public:
    int Show(HWND, const std::wstring& strText, const std::wstring& strCaption, UINT uType) override
    {
        std::lock_guard<std::mutex> lock(m_mutex);
        const UINT buttons = uType & MB_TYPEMASK;
        int answer = IDOK;
        if (buttons != MB_OK) {
            if (!m_answers.empty()) {
                answer = m_answers.front();
                m_answers.pop_front();
            } else {
                answer = SafeAnswer(buttons);
            }
        }
        if (m_history.size() >= kMaxHistory) m_history.erase(m_history.begin());
        m_history.push_back(MessageBoxRecord{strText, strCaption, uType, answer});
        if (m_pEcho) {
            std::fprintf(m_pEcho, "[%s] %s -> %s\n", svwin::WideToUtf8(strCaption).c_str(),
                         svwin::WideToUtf8(strText).c_str(), AnswerName(answer));
            std::fflush(m_pEcho);
        }
        return answer;
    }

    static int SafeAnswer(UINT buttons)
    {
        switch (buttons) {
        case MB_YESNO: return IDNO;
        case MB_ABORTRETRYIGNORE: return IDABORT;
        default: return IDCANCEL;
        }
    }

    static const char* AnswerName(int answer)
    {
        static const char* const names[] = {"?", "OK", "Cancel", "Abort", "Retry", "Ignore", "Yes", "No"};
        return answer >= 1 && answer <= 7 ? names[answer] : names[0];
    }

    static constexpr std::size_t kMaxHistory = 1000;
    std::mutex m_mutex;
    std::deque<int> m_answers;
    std::vector<MessageBoxRecord> m_history;
    std::FILE* m_pEcho = nullptr;
};

CHeadlessMessageBoxes& Recorder()
{
    static CHeadlessMessageBoxes s_recorder;
    return s_recorder;
}

std::atomic<IMessageBoxSink*> g_pSink{nullptr};

} // namespace

IMessageBoxSink* SetMessageBoxSink(IMessageBoxSink* pSink)
{
    IMessageBoxSink* pOld = g_pSink.exchange(pSink);
    return pOld ? pOld : &Recorder();
}

IMessageBoxSink* GetMessageBoxSink()
{
    IMessageBoxSink* p = g_pSink.load();
    return p ? p : &Recorder();
}

int MessageBoxW(HWND hWnd, LPCWSTR lpText, LPCWSTR lpCaption, UINT uType)
{
    return GetMessageBoxSink()->Show(hWnd, lpText ? lpText : L"", lpCaption ? lpCaption : L"Error", uType);
}

void MessageBoxPushAnswer(int iAnswer)
{
    std::lock_guard<std::mutex> lock(Recorder().m_mutex);
    Recorder().m_answers.push_back(iAnswer);
}

void MessageBoxClearAnswers()
{
    std::lock_guard<std::mutex> lock(Recorder().m_mutex);
    Recorder().m_answers.clear();
}

std::vector<MessageBoxRecord> MessageBoxHistory()
{
    std::lock_guard<std::mutex> lock(Recorder().m_mutex);
    return Recorder().m_history;
}

void MessageBoxClearHistory()
{
    std::lock_guard<std::mutex> lock(Recorder().m_mutex);
    Recorder().m_history.clear();
}

void MessageBoxSetEcho(std::FILE* pStream)
{
    std::lock_guard<std::mutex> lock(Recorder().m_mutex);
    Recorder().m_pEcho = pStream;
}
