#pragma once
// The curve of an equation, sampled for drawing: F(x, y) = L - R evaluated
// in doubles from the exact expression, an explicit y = f(x) traced column
// by column and an implicit F(x, y) = 0 by its sign changes on a grid
// (marching squares), with no segment drawn across a pole or an asymptote.

#include <memory>
#include <string>
#include <vector>

struct Punto2 {
  double x, y;
};
struct Segmento {
  Punto2 a, b;
};
struct Ventana {
  double xMin, xMax, yMin, yMax;
};

class Curva {
public:
  Curva();
  ~Curva();
  Curva(Curva&&) noexcept;
  Curva& operator=(Curva&&) noexcept;

  // Reads the equation with the dependent and independent variables; ""
  // when it can be drawn, else the Spanish reason.
  std::string Lee(const std::string& ecuacion, const std::string& vd = "y",
                  const std::string& vi = "x");

  // F(x, y), NaN where it has no real value.
  double F(double x, double y) const;
  // y = f(x): y is alone, with a constant coefficient.
  bool Explicita() const { return explicita_; }

  // The slope dy/dx = -F_x/F_y at a point of the curve, by central
  // differences; NaN where F_y vanishes.
  double Pendiente(double x, double y) const;

  // The curve inside `v`, sampled on a grid of `columnas` by `filas` cells.
  std::vector<Segmento> Traza(const Ventana& v, int columnas, int filas) const;

private:
  struct Evaluador;
  std::unique_ptr<Evaluador> evaluador_;
  bool explicita_ = false;
};

// The point of `segmentos` nearest to `p`; false when there is none.
bool PuntoMasCercano(const std::vector<Segmento>& segmentos, Punto2 p, Punto2& cercano);
