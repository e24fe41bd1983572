// Text from outside (arguments, file names, words read from standard input)
// as an error message may show it: nothing in it can move the cursor,
// retitle the terminal or flood the screen.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace timetool {

// How many characters of an echoed argument are shown before it is cut.
inline constexpr std::size_t kShownArgumentLength = 64;

// `text` with every control character written as an escape: \n, \r, \t, a
// doubled backslash for the backslash itself, \xNN for the other C0 controls, DEL and bytes
// that are not UTF-8, \uNNNN for C1 controls, line and paragraph separators
// and the bidirectional formatting characters. At most `maxCharacters`
// characters of `text` are shown; a longer text ends in "…".
std::string EscapeText(std::string_view text, std::size_t maxCharacters);

// `text` escaped and cut to kShownArgumentLength characters, in single quotes:
// the one form in which timetool echoes an argument.
std::string QuoteArgument(std::string_view text);

}  // namespace timetool
