#pragma once
// A GiNaC expression written back in Mirkal's own language, so that a
// result can be pasted into a document and derived again: the language's
// function names, "^" for powers, a quotient for negative exponents, e and
// Pi as constants.

#include <ginac/ginac.h>

#include <string>
#include <vector>

std::string EnMirkal(const GiNaC::ex& e);

// The same expression in LaTeX.
std::string EnLatex(const GiNaC::ex& e);

// The terms of a sum in the order every writer puts them: the highest
// degree first, numbers last, then by their text (GiNaC's own order depends
// on when each symbol was made).
std::vector<GiNaC::ex> TerminosEnOrden(const GiNaC::ex& suma);
