#pragma once
// A GiNaC expression written back in Mirkal's own language, so that a
// result can be pasted into a document and derived again: the language's
// function names, "^" for powers, a quotient for negative exponents, e and
// Pi as constants.

#include <ginac/ginac.h>

#include <string>

std::string EnMirkal(const GiNaC::ex& e);

// The same expression in LaTeX.
std::string EnLatex(const GiNaC::ex& e);
