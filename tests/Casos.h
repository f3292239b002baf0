#pragma once
// Case tables kept as text under tests/casos/: one case a line, its fields
// separated by " | ", blank lines and lines starting with "#" skipped. Fields
// are trimmed; inside one, \n \r \t \\ \| \s (a space that must survive the
// trimming) and \xHH stand for what they say. A table test is a gtest
// parameterised by the lines of one file, so that a failing case is named by
// its file and line:
//
//   class Calc : public prueba::TablaDeCasos {};
//   TEST_P(Calc, Results) { const auto& c = GetParam(); ... c[1] ... }
//   INSTANTIATE_TEST_SUITE_P(Casos, Calc, prueba::Casos("calc.txt"), prueba::NombreDeCaso);

#include <gtest/gtest.h>

#include <cstddef>
#include <fstream>
#include <ostream>
#include <stdexcept>
#include <string>
#include <vector>

namespace prueba {

struct Caso {
  std::string archivo;
  int linea = 0;
  std::vector<std::string> campos;

  const std::string& operator[](std::size_t i) const {
    if (i >= campos.size())
      throw std::out_of_range(archivo + ":" + std::to_string(linea) + ": falta el campo " +
                              std::to_string(i + 1));
    return campos[i];
  }
  std::size_t size() const { return campos.size(); }
};

inline std::ostream& operator<<(std::ostream& out, const Caso& c) {
  return out << c.archivo << ":" << c.linea;
}

inline std::string Recorta(const std::string& s) {
  const auto ini = s.find_first_not_of(" \t");
  if (ini == std::string::npos) return "";
  return s.substr(ini, s.find_last_not_of(" \t") - ini + 1);
}

// A field that stands for a text: "(vacío)" is the empty one.
inline std::string Texto(const std::string& campo) { return campo == "(vacío)" ? "" : campo; }

// "c{n}" stands for n times the character c (one byte or one UTF-8
// character), so that long texts stay readable.
inline std::string Expande(const std::string& s) {
  std::string out;
  for (std::size_t i = 0; i < s.size(); ++i) {
    const std::size_t fin = s.find('}', i);
    if (s[i] == '{' && !out.empty() && fin != std::string::npos) {
      std::size_t ini = out.size() - 1; // the last character may take several bytes
      while (ini > 0 && (static_cast<unsigned char>(out[ini]) & 0xC0) == 0x80)
        --ini;
      const std::string car = out.substr(ini);
      for (auto n = std::stoul(s.substr(i + 1, fin - i - 1)); n > 1; --n)
        out += car;
      i = fin;
    } else {
      out += s[i];
    }
  }
  return out;
}

// The field's escapes undone.
inline std::string Desescapa(const std::string& s) {
  std::string out;
  for (std::size_t i = 0; i < s.size(); ++i) {
    if (s[i] != '\\' || i + 1 == s.size()) {
      out += s[i];
      continue;
    }
    switch (const char c = s[++i]) {
    case 'n':
      out += '\n';
      break;
    case 'r':
      out += '\r';
      break;
    case 't':
      out += '\t';
      break;
    case 's':
      out += ' ';
      break;
    case 'x':
      out += static_cast<char>(std::stoi(s.substr(i + 1, 2), nullptr, 16));
      i += 2;
      break;
    default:
      out += c; // \\ and \|
    }
  }
  return out;
}

inline std::vector<std::string> PartePorCampos(const std::string& linea) {
  std::vector<std::string> campos;
  std::string actual;
  for (std::size_t i = 0; i < linea.size(); ++i) {
    if (linea[i] == '\\' && i + 1 < linea.size()) {
      actual += linea.substr(i, 2);
      ++i;
    } else if (linea.compare(i, 3, " | ") == 0) {
      campos.push_back(Desescapa(Recorta(actual)));
      actual.clear();
      i += 2;
    } else {
      actual += linea[i];
    }
  }
  campos.push_back(Desescapa(Recorta(actual)));
  return campos;
}

// Every case of tests/casos/<nombre>.
inline std::vector<Caso> LeeCasos(const std::string& nombre) {
  const std::string ruta = std::string(MIRKAL_FUENTES) + "/tests/casos/" + nombre;
  std::ifstream f(ruta, std::ios::binary);
  if (!f) throw std::runtime_error("no se pudo leer " + ruta);
  std::vector<Caso> casos;
  std::string linea;
  for (int n = 1; std::getline(f, linea); ++n) {
    if (!linea.empty() && linea.back() == '\r') linea.pop_back();
    const std::string limpia = Recorta(linea);
    if (limpia.empty() || limpia.front() == '#') continue;
    casos.push_back({nombre, n, PartePorCampos(linea)});
  }
  return casos;
}

inline auto Casos(const std::string& nombre) { return ::testing::ValuesIn(LeeCasos(nombre)); }

inline std::string NombreDeCaso(const ::testing::TestParamInfo<Caso>& info) {
  return "linea_" + std::to_string(info.param.linea);
}

using TablaDeCasos = ::testing::TestWithParam<Caso>;

} // namespace prueba
