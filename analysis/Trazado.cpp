#include "analysis/Trazado.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "analysis/ExpresionGinac.h"
#include "lang/Cp1252.h"
#include "lang/SintaxExp.h"

using namespace GiNaC;

namespace {

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();

// The expression compiled once into a tree of double operations, so that a
// grid of tens of thousands of samples costs milliseconds, not seconds.
struct Nodo {
  enum Tipo { Constante, X, Y, Suma, Producto, Potencia, Funcion } tipo;
  double valor = 0;
  double (*funcion)(double) = nullptr;
  std::vector<Nodo> hijos;

  double Valor(double x, double y) const {
    switch (tipo) {
    case Constante:
      return valor;
    case X:
      return x;
    case Y:
      return y;
    case Suma: {
      double s = 0;
      for (const Nodo& h : hijos)
        s += h.Valor(x, y);
      return s;
    }
    case Producto: {
      double p = 1;
      for (const Nodo& h : hijos)
        p *= h.Valor(x, y);
      return p;
    }
    case Potencia:
      return std::pow(hijos[0].Valor(x, y), hijos[1].Valor(x, y));
    case Funcion:
      return funcion(hijos[0].Valor(x, y));
    }
    return kNaN;
  }
};

double ArcSec(double x) {
  return std::atan(x / std::sqrt(x * x - 1)) + (x > 1 ? 1 : x < 1 ? -1 : 0) * M_PI / 2;
}
double ArcCosec(double x) {
  return std::atan(x / std::sqrt(x * x - 1)) + ((x > 0 ? 1 : x < 0 ? -1 : 0) - 1) * M_PI / 2;
}

double (*FuncionDe(const std::string& nombre))(double) {
  static const std::pair<const char*, double (*)(double)> tabla[] = {
      {"sin", [](double v) { return std::sin(v); }},
      {"cos", [](double v) { return std::cos(v); }},
      {"tan", [](double v) { return std::tan(v); }},
      {"log", [](double v) { return v > 0 ? std::log(v) : kNaN; }},
      {"exp", [](double v) { return std::exp(v); }},
      {"asin", [](double v) { return std::asin(v); }},
      {"acos", [](double v) { return std::acos(v); }},
      {"atan", [](double v) { return std::atan(v); }},
      {"sinh", [](double v) { return std::sinh(v); }},
      {"cosh", [](double v) { return std::cosh(v); }},
      {"tanh", [](double v) { return std::tanh(v); }},
      {"asinh", [](double v) { return std::asinh(v); }},
      {"acosh", [](double v) { return std::acosh(v); }},
      {"atanh", [](double v) { return std::atanh(v); }},
      {"ArcSec", ArcSec},
      {"ArcCosec", ArcCosec}};
  for (const auto& [n, f] : tabla)
    if (nombre == n) return f;
  return nullptr;
}

Nodo Compila(const ex& e, const symbol& x, const symbol& y) {
  if (is_a<numeric>(e)) {
    const numeric n = ex_to<numeric>(e);
    return {Nodo::Constante, n.is_real() ? n.to_double() : kNaN, nullptr, {}};
  }
  if (e.is_equal(x)) return {Nodo::X, 0, nullptr, {}};
  if (e.is_equal(y)) return {Nodo::Y, 0, nullptr, {}};
  if (is_a<constant>(e)) return {Nodo::Constante, M_PI, nullptr, {}};
  if (is_a<symbol>(e)) return {Nodo::Constante, kNaN, nullptr, {}}; // another name
  Nodo n{Nodo::Suma, 0, nullptr, {}};
  if (is_a<mul>(e)) n.tipo = Nodo::Producto;
  if (is_a<power>(e)) n.tipo = Nodo::Potencia;
  if (is_a<function>(e)) {
    n.tipo = Nodo::Funcion;
    n.funcion = FuncionDe(ex_to<function>(e).get_name());
    if (!n.funcion) return {Nodo::Constante, kNaN, nullptr, {}};
  }
  for (std::size_t i = 0; i < e.nops(); ++i)
    n.hijos.push_back(Compila(e.op(i), x, y));
  return n;
}

} // namespace

struct Curva::Evaluador {
  Nodo raiz{Nodo::Constante, kNaN, nullptr, {}};
};

Curva::Curva() : evaluador_(std::make_unique<Evaluador>()) {}
Curva::~Curva() = default;
Curva::Curva(Curva&&) noexcept = default;
Curva& Curva::operator=(Curva&&) noexcept = default;

std::string Curva::Lee(const std::string& ecuacion, const std::string& vd, const std::string& vi) {
  SintaxExp s;
  if (!s.SintaxEcu(ecuacion)) return s.ErrDesc();
  const std::string normal = s.Expr();
  const auto igual = normal.find('=');
  try {
    Variables variables;
    const ex f = LeeExpresion(normal.substr(0, igual), variables) -
                 LeeExpresion(normal.substr(igual + 1), variables);
    const auto simbolo = [&](const std::string& nombre) {
      const std::string clave = EnMayusculas(Utf8ACp1252(nombre));
      auto sitio = variables.find(clave);
      if (sitio == variables.end()) sitio = variables.emplace(clave, symbol(nombre)).first;
      return sitio->second;
    };
    const symbol y = simbolo(vd), x = simbolo(vi);
    evaluador_->raiz = Compila(f, x, y);
    const ex fy = f.diff(y);
    explicita_ = is_a<numeric>(fy) && !fy.is_zero() && !f.subs(y == 0).has(y);
  } catch (const std::exception& e) {
    return e.what();
  }
  return "";
}

double Curva::F(double x, double y) const { return evaluador_->raiz.Valor(x, y); }

double Curva::Pendiente(double x, double y) const {
  const double h = 1e-6 * (1 + std::fabs(x) + std::fabs(y));
  const double fx = F(x + h, y) - F(x - h, y), fy = F(x, y + h) - F(x, y - h);
  return fy == 0 ? kNaN : -fx / fy;
}

std::vector<Segmento> Curva::Traza(const Ventana& v, int columnas, int filas) const {
  std::vector<Segmento> out;
  columnas = std::max(columnas, 2);
  filas = std::max(filas, 2);
  const double dx = (v.xMax - v.xMin) / columnas, dy = (v.yMax - v.yMin) / filas;
  const double alto = v.yMax - v.yMin;
  if (explicita_) {
    // y = -F(x, 0) / (F(x, 1) - F(x, 0)): the coefficient of y is constant.
    const auto yDe = [&](double x) {
      const double f0 = F(x, 0);
      return -f0 / (F(x, 1) - f0);
    };
    for (int i = 0; i < columnas; ++i) {
      const double x0 = v.xMin + i * dx, x1 = x0 + dx;
      const double y0 = yDe(x0), y1 = yDe(x1), ym = yDe((x0 + x1) / 2);
      if (!std::isfinite(y0) || !std::isfinite(y1) || !std::isfinite(ym)) continue;
      // Across a pole the middle is far from both ends, and the ends far apart.
      if (std::fabs(y1 - y0) > alto || std::fabs(ym - (y0 + y1) / 2) > alto / 4) continue;
      out.push_back({{x0, y0}, {x1, y1}});
    }
    return out;
  }
  // Marching squares: F at the corners of every cell; a zero on each edge
  // whose ends differ in sign, joined inside the cell.
  std::vector<double> valores(static_cast<std::size_t>((columnas + 1) * (filas + 1)));
  const auto en = [&](int i, int j) -> double& {
    return valores[static_cast<std::size_t>(j * (columnas + 1) + i)];
  };
  for (int j = 0; j <= filas; ++j)
    for (int i = 0; i <= columnas; ++i)
      en(i, j) = F(v.xMin + i * dx, v.yMin + j * dy);
  for (int j = 0; j < filas; ++j)
    for (int i = 0; i < columnas; ++i) {
      const double x0 = v.xMin + i * dx, y0 = v.yMin + j * dy;
      const Punto2 esquinas[4] = {{x0, y0}, {x0 + dx, y0}, {x0 + dx, y0 + dy}, {x0, y0 + dy}};
      const double f[4] = {en(i, j), en(i + 1, j), en(i + 1, j + 1), en(i, j + 1)};
      double mayor = 0;
      bool finitos = true;
      for (const double fi : f) {
        finitos = finitos && std::isfinite(fi);
        mayor = std::max(mayor, std::fabs(fi));
      }
      if (!finitos) continue;
      std::vector<Punto2> ceros;
      for (int k = 0; k < 4; ++k) {
        const double a = f[k], b = f[(k + 1) % 4];
        if ((a < 0) == (b < 0)) continue;
        const double t = a / (a - b);
        const Punto2 p = esquinas[k], q = esquinas[(k + 1) % 4];
        ceros.push_back({p.x + t * (q.x - p.x), p.y + t * (q.y - p.y)});
      }
      for (std::size_t k = 0; k + 1 < ceros.size(); k += 2) {
        const Segmento s{ceros[k], ceros[k + 1]};
        // A sign change through a pole is no zero: F in the segment's middle
        // stays as large as at the corners.
        const double medio = F((s.a.x + s.b.x) / 2, (s.a.y + s.b.y) / 2);
        if (!std::isfinite(medio) || std::fabs(medio) > mayor / 2) continue;
        out.push_back(s);
      }
    }
  return out;
}

bool PuntoMasCercano(const std::vector<Segmento>& segmentos, Punto2 p, Punto2& cercano) {
  double mejor = std::numeric_limits<double>::infinity();
  for (const Segmento& s : segmentos) {
    const double vx = s.b.x - s.a.x, vy = s.b.y - s.a.y, l2 = vx * vx + vy * vy;
    const double t =
        l2 > 0 ? std::clamp(((p.x - s.a.x) * vx + (p.y - s.a.y) * vy) / l2, 0.0, 1.0) : 0.0;
    const Punto2 q{s.a.x + t * vx, s.a.y + t * vy};
    const double d = std::hypot(q.x - p.x, q.y - p.y);
    if (d < mejor) mejor = d, cercano = q;
  }
  return std::isfinite(mejor);
}
