#!/usr/bin/env python3
"""Random equations over the whole expression language, one a line.

    scripts/genera-ecuaciones.py [CUANTAS] [SEMILLA]

The same seed gives the same equations, so that two builds of the engine can
be compared on them. Half are explicit (y = f(x)), half implicit F(x, y) =
G(x, y); numbers come as integers, short decimals, 15-digit decimals and
exponent forms, so that the formatter's fractions and rounding are reached.
"""
import random
import sys

FUNCIONES = [
    "Log", "Ln", "Sin", "Cos", "Tg", "Sec", "Cosec", "Ctg", "ArcSin", "ArcCos",
    "ArcTg", "ArcSec", "ArcCosec", "ArcCtg", "SinH", "CosH", "TgH", "SecH",
    "CosecH", "CtgH", "ArcSinH", "ArcCosH", "ArcTgH", "ArcSecH", "ArcCosecH",
    "ArcCtgH",
]


def numero(r):
    tipo = r.randrange(6)
    if tipo == 0:
        return str(r.randint(1, 12))
    if tipo == 1:
        return "%d.%d" % (r.randint(0, 9), r.randint(1, 99))
    if tipo == 2:
        return ("%.15g" % r.uniform(0.001, 100)).lstrip("0") or "1"
    if tipo == 3:
        return "%dE%d" % (r.randint(1, 9), r.choice([-3, -1, 2, 14]))
    if tipo == 4:
        return "." + str(r.randint(1, 999))
    return r.choice(["Pi", "e", "2", "3"])


def hoja(r, variables):
    if r.random() < 0.6:
        return r.choice(variables)
    return numero(r)


def expresion(r, variables, hondo):
    if hondo <= 0 or r.random() < 0.25:
        return hoja(r, variables)
    tipo = r.randrange(7)
    a = expresion(r, variables, hondo - 1)
    if tipo == 0:
        return "%s(%s)" % (r.choice(FUNCIONES), a)
    if tipo == 1:
        return "%s^%s" % (envuelve(a), r.choice(["2", "3", "(1/2)", "-1", "x", ".5"]))
    b = expresion(r, variables, hondo - 1)
    op = "+-*/"[tipo - 2] if tipo < 6 else r.choice("+-")
    if op in "*/":
        return "%s%s%s" % (envuelve(a), op, envuelve(b))
    return "%s %s %s" % (a, op, b)


def envuelve(t):
    return t if t.replace("_", "").isalnum() or t.startswith(".") else "(%s)" % t


def main():
    cuantas = int(sys.argv[1]) if len(sys.argv) > 1 else 2000
    r = random.Random(int(sys.argv[2]) if len(sys.argv) > 2 else 11)
    for _ in range(cuantas):
        if r.random() < 0.5:
            print("y = " + expresion(r, ["x"], r.randint(1, 4)))
        else:
            izq = expresion(r, ["x", "y"], r.randint(1, 3))
            der = expresion(r, ["x", "y"], r.randint(0, 3))
            print("%s = %s" % (izq, der))


if __name__ == "__main__":
    main()
