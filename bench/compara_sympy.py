#!/usr/bin/env python3
"""Mirkal against SymPy, row by row, in one run.

    bench/compara_sympy.py [BENCH_LOTE] [--filas PATRÓN] [--limite SEGUNDOS]

Takes the rows of bench_lote (the typical equations and the families, as
`bench_lote --filas` lists them), times them with bench_lote (Google
Benchmark, CPU time) and with SymPy on the same equations, and prints, per
row, the time of one equation for each and how many times faster Mirkal is.

SymPy does the raw work a user would ask of it: for y = f(x), diff(f, x);
for an implicit F(x, y) = G(x, y), -H_x/H_y with H = F - G; nothing is
simplified. Reading the equation is not timed on SymPy's side (Mirkal's
time includes its own reading). SymPy's cache is cleared before each
derivative, so that a repetition is not a lookup. A row that takes SymPy
longer than the limit (60 s by default) is shown as such.
"""
import json
import re
import signal
import subprocess
import sys
import time

import sympy

FUNCIONES = {
    "log": lambda w: sympy.log(w, 10), "ln": sympy.log,
    "sin": sympy.sin, "cos": sympy.cos, "tg": sympy.tan, "sec": sympy.sec,
    "cosec": sympy.csc, "ctg": sympy.cot, "arcsin": sympy.asin,
    "arccos": sympy.acos, "arctg": sympy.atan, "arcsec": sympy.asec,
    "arccosec": sympy.acsc, "arcctg": sympy.acot, "sinh": sympy.sinh,
    "cosh": sympy.cosh, "tgh": sympy.tanh, "sech": sympy.sech,
    "cosech": sympy.csch, "ctgh": sympy.coth, "arcsinh": sympy.asinh,
    "arccosh": sympy.acosh, "arctgh": sympy.atanh, "arcsech": sympy.asech,
    "arccosech": sympy.acsch, "arcctgh": sympy.acoth,
}
X, Y = sympy.symbols("x y")

TOKEN = re.compile(r"\s*(?:(\d+\.?\d*|\.\d+)(?:[eEdD]([+-]?\d+))?|([A-Za-z_]\w*)|(\S))")


def a_python(texto):
    """The equation's side in Python syntax: "^" is "**", names are mapped."""
    out = []
    for numero, exponente, nombre, otro in TOKEN.findall(texto):
        if numero:
            out.append("(%s%s)" % (numero, "e" + exponente if exponente else ""))
        elif nombre:
            n = nombre.lower()
            out.append("F_" + n if n in FUNCIONES else
                       {"pi": "pi", "e": "E"}.get(n, n))
        else:
            out.append({"^": "**", "\u00b7": "*"}.get(otro, otro))
    return "".join(out)


def lee(texto):
    nombres = {"F_" + k: v for k, v in FUNCIONES.items()}
    nombres.update({"pi": sympy.pi, "E": sympy.E, "x": X, "y": Y})
    return sympy.sympify(a_python(texto), locals=nombres, rational=False)


class Agotado(Exception):
    pass


def deriva(izq, der):
    sympy.core.cache.clear_cache()
    if izq == Y and not der.has(Y):
        return sympy.diff(der, X)
    h = izq - der
    return -sympy.diff(h, X) / sympy.diff(h, Y)


def tiempo_sympy(ecuaciones, limite):
    """Seconds for one equation, on average; None past the limit."""
    lados = []
    for e in ecuaciones:
        izq, der = e.split("=", 1)
        lados.append((lee(izq), lee(der)))

    def alarma(*_):
        raise Agotado()

    signal.signal(signal.SIGALRM, alarma)
    signal.alarm(int(limite))
    try:
        vueltas, inicio = 0, time.process_time()
        while True:
            for izq, der in lados:
                deriva(izq, der)
            vueltas += 1
            gastado = time.process_time() - inicio
            if gastado >= 0.5 or vueltas >= 200:
                return gastado / (vueltas * len(lados))
    except (Agotado, RecursionError):
        return None
    finally:
        signal.alarm(0)


def main():
    args = sys.argv[1:]
    bench = "build/bench/bench_lote"
    patron, limite = "", 60.0
    while args:
        a = args.pop(0)
        if a == "--filas":
            patron = args.pop(0)
        elif a == "--limite":
            limite = float(args.pop(0))
        else:
            bench = a
    filas = {}
    for linea in subprocess.run([bench, "--filas"], check=True, capture_output=True,
                                text=True).stdout.splitlines():
        nombre, ecuacion = linea.split("\t", 1)
        if re.search(patron, nombre):
            filas.setdefault(nombre, []).append(ecuacion)
    filtro = "BM_Lote/(%s)$" % "|".join(re.escape(n) for n in filas)
    salida = subprocess.run([bench, "--benchmark_format=json", "--benchmark_filter=" + filtro,
                             "--benchmark_min_time=0.2"], check=True, capture_output=True,
                            text=True).stdout
    mirkal = {}
    for b in json.loads(salida)["benchmarks"]:
        nombre = b["name"][len("BM_Lote/"):]
        mirkal[nombre] = (b["cpu_time"] * 1e-6 / b["ecuaciones"], b["errores"])

    print("%-16s %14s %14s %10s" % ("fila", "Mirkal", "SymPy", "veces"))
    for nombre, ecuaciones in filas.items():
        m, errores = mirkal[nombre]
        s = tiempo_sympy(ecuaciones, limite)
        nota = "  (%d con error)" % errores if errores else ""
        print("%-16s %14s %14s %10s%s" % (
            nombre, mide(m), mide(s) if s is not None else "> %g s" % limite,
            "%.1f" % (s / m) if s is not None else "-", nota))


def mide(segundos):
    if segundos >= 1:
        return "%.2f s" % segundos
    if segundos >= 1e-3:
        return "%.2f ms" % (segundos * 1e3)
    return "%.1f us" % (segundos * 1e6)


if __name__ == "__main__":
    main()
