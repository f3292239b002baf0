#include "algebra/Parentesis.h"

std::string_view SinParentesis(std::string_view t) {
  while (t.size() >= 2 && t.front() == '(' && t.back() == ')') {
    int nivel = 0;
    for (std::size_t i = 1; i + 1 < t.size(); ++i) {
      if (t[i] == '(')
        ++nivel;
      else if (t[i] == ')' && --nivel < 0)
        return t; // the first one closes early: (a)*(b)
    }
    if (nivel != 0) return t;
    t = t.substr(1, t.size() - 2);
  }
  return t;
}
