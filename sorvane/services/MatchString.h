// Name patterns for lists of layers and the like: wildcards as the host matches them,
// "!" in front of a pattern negates it, "&" joins patterns that must all match and "|"
// patterns of which one must match ("&" binds closer). Blanks round each pattern are
// ignored; case is ignored.
#pragma once

// 1 if the value matches the pattern, else 0. An empty pattern matches every value.
int MatchString(const wchar_t* value, const wchar_t* pattern);
