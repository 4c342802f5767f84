// Walks the open documents for the document and lock helpers, with the iterator freed on
// every path and a platform exception traced instead of passed on.
#pragma once

#include <functional>

class AcApDocument;

// Calls visit for each open document in turn until it answers true. False when there was
// no iterator or the walk threw (the tag names the caller in the trace).
bool WalkDocuments(const wchar_t* tag, const std::function<bool(AcApDocument*)>& visit);
