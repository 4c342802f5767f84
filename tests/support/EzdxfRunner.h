// ezdxf as an independent reader of our DXF files: the tests hand it a file and
// compare what it makes of it with what we wrote.
#pragma once

#include <string>

// ezdxf is there (through /usr/bin/python3, never a python found on PATH) and the
// source tree is known; tests skip otherwise.
bool EzdxfAvailable();
// Runs tests/host/dxf/ezdxf/ezdxf_check.py with the arguments and gives its
// standard output and error. A non-zero exit fails the calling test.
std::string RunEzdxf(const std::string& arguments);
