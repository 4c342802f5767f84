// Whole-file reading and atomic replacement, for the host's own file formats
// (profile files, and any text file the module reads as a whole).
#pragma once

#include <string>
#include <string_view>

namespace svwin {

// Reads the whole file; false (errno set) if it cannot be read.
bool ReadFileBytes(const std::string& native, std::string& bytes);
// Reads a text file as DecodeFileText does (UTF-8, else Windows-1252).
bool ReadTextFile(const std::string& native, std::wstring& text);

// Replaces the file's contents in one step: the bytes go to a temporary file
// in the same folder, which is then renamed over the target, so a crash
// leaves either the old or the new file. The target's permissions are kept,
// a symbolic link is followed, and missing parent folders are created.
// false (errno set) on failure, and the target is untouched.
bool WriteFileAtomic(const std::string& native, std::string_view bytes);

// Creates the folder and its missing parents; true if it exists afterwards.
bool CreateFolders(const std::string& native);

} // namespace svwin
