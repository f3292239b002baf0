#pragma once
// Parentheses that enclose a whole text.

#include <string_view>

// Removes parentheses that enclose the whole text, as often as they occur:
// "((x+1))" gives "x+1", while "(a)*(b)" is returned as it is.
std::string_view SinParentesis(std::string_view texto);
