// A fresh folder per test, removed afterwards, and small file helpers.
#pragma once

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <optional>
#include <string>

class TempFolder {
public:
    TempFolder()
    {
        std::string pattern = (std::filesystem::temp_directory_path() / "svwin-XXXXXX").string();
        if (::mkdtemp(pattern.data())) m_path = pattern;
    }
    ~TempFolder()
    {
        std::error_code ec;
        if (!m_path.empty()) std::filesystem::remove_all(m_path, ec);
    }
    TempFolder(const TempFolder&) = delete;
    TempFolder& operator=(const TempFolder&) = delete;

    const std::string& Path() const { return m_path; }
    std::string Native(const std::string& rel) const { return m_path + "/" + rel; }
    // The folder as the module would write it: backslashes throughout.
    std::wstring Wide(const std::string& rel = "") const
    {
        std::wstring w(m_path.begin(), m_path.end());
        if (!rel.empty()) w += L"\\" + std::wstring(rel.begin(), rel.end());
        for (wchar_t& ch : w)
            if (ch == L'/') ch = L'\\';
        return w;
    }

    void Write(const std::string& rel, const std::string& bytes) const
    {
        std::filesystem::create_directories(std::filesystem::path(Native(rel)).parent_path());
        std::ofstream(Native(rel), std::ios::binary) << bytes;
    }
    std::optional<std::string> Read(const std::string& rel) const
    {
        std::ifstream in(Native(rel), std::ios::binary);
        if (!in) return std::nullopt;
        return std::string(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>());
    }

private:
    std::string m_path;
};

// Sets an environment variable for one scope (unset with null).
class ScopedEnv {
public:
    ScopedEnv(const char* name, const char* value) : m_name(name)
    {
        if (const char* old = std::getenv(name)) m_old = old;
        if (value) ::setenv(name, value, 1);
        else ::unsetenv(name);
    }
    ~ScopedEnv()
    {
        if (m_old) ::setenv(m_name.c_str(), m_old->c_str(), 1);
        else ::unsetenv(m_name.c_str());
    }
    ScopedEnv(const ScopedEnv&) = delete;
    ScopedEnv& operator=(const ScopedEnv&) = delete;

private:
    std::string m_name;
    std::optional<std::string> m_old;
};
