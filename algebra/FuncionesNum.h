#pragma once
// Numeric values of the 26 functions of the language, by the composite
// formulas of the calculator (ArcSin through atan, the hyperbolic functions
// through exp), evaluated in their written order of operations with no
// special-casing of domains. A logarithm of a non-positive number, a square
// root of a negative one, a division by zero or a result beyond the double
// range throws ErrorMotor with the arithmetic's own number.

// `indice` is the function's place in kFunciones (0 for Log).
double EvaluaFuncion(int indice, double x);
