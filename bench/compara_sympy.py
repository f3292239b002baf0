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
longer than the limit (60 s by default), or on which SymPy fails, is shown as
such.
"""
import json
import re
import multiprocessing
import subprocess
import sys
import threading
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
# Binding strength: a leading sign binds looser than "^" and tighter than
# "*", while an exponent's own sign (x^-2) binds tightest; "^" groups from
# the left, as in the language (a^b^c is (a^b)^c).
FUERZA = {"+": 1, "-": 1, "*": 2, "/": 2, "neg": 3, "pos": 3, "^": 4, "negexp": 5, "posexp": 5}


def lee(texto):
    """A side of an equation as a SymPy expression. Read without recursion,
    so that a nest of a thousand parentheses is no problem."""
    valores, ops = [], []

    def aplica():
        op = ops.pop()
        if op in ("neg", "pos", "negexp", "posexp"):
            v = valores.pop()
            valores.append(-v if op.startswith("neg") else v)
            return
        b, a = valores.pop(), valores.pop()
        valores.append({"+": lambda: a + b, "-": lambda: a - b, "*": lambda: a * b,
                        "/": lambda: a / b, "^": lambda: a ** b}[op]())

    espera_valor = True
    for numero, exponente, nombre, otro in TOKEN.findall(texto):
        if numero:
            valores.append(sympy.Float(numero + ("e" + exponente if exponente else ""))
                           if "." in numero or exponente else sympy.Integer(numero))
            espera_valor = False
        elif nombre:
            n = nombre.lower()
            if n in FUNCIONES:
                ops.append(("funcion", FUNCIONES[n]))
            else:
                valores.append({"pi": sympy.pi, "e": sympy.E, "x": X, "y": Y}.get(n)
                               or sympy.Symbol(n))
                espera_valor = False
        elif otro == "(":
            ops.append("(")
            espera_valor = True
        elif otro == ")":
            while ops[-1] != "(":
                aplica()
            ops.pop()
            if ops and isinstance(ops[-1], tuple):
                valores.append(ops.pop()[1](valores.pop()))
            espera_valor = False
        else:
            op = {"\u00b7": "*"}.get(otro, otro)
            if espera_valor:
                signo = "neg" if op == "-" else "pos"
                ops.append(signo + "exp" if ops and ops[-1] in ("^", "negexp", "posexp") else signo)
                continue
            while (ops and ops[-1] in FUERZA and
                   FUERZA[ops[-1]] >= FUERZA[op] and not (op == "^" and ops[-1] in ("neg", "pos"))):
                aplica()
            ops.append(op)
            espera_valor = True
    while ops:
        aplica()
    return valores[0]


def deriva(izq, der):
    sympy.core.cache.clear_cache()
    if izq == Y and not der.has(Y):
        return sympy.diff(der, X)
    h = izq - der
    return -sympy.diff(h, X) / sympy.diff(h, Y)


def mide_aqui(ecuaciones):
    """Seconds for one equation, on average; None when SymPy fails."""
    try:
        lados = [tuple(lee(lado) for lado in e.split("=", 1)) for e in ecuaciones]
        vueltas, inicio = 0, time.process_time()
        while True:
            for izq, der in lados:
                deriva(izq, der)
            vueltas += 1
            gastado = time.process_time() - inicio
            if gastado >= 0.5 or vueltas >= 200:
                return gastado / (vueltas * len(lados))
    except (RecursionError, MemoryError):
        return None


def hijo(ecuaciones, tubo):
    # Deep expressions recurse deeply inside SymPy: a thread with a large
    # stack, and a recursion limit to match.
    sys.setrecursionlimit(1000000)
    threading.stack_size(1 << 30)
    resultado = []
    t = threading.Thread(target=lambda: resultado.append(mide_aqui(ecuaciones)))
    t.start()
    t.join()
    tubo.send(resultado[0] if resultado else None)


def tiempo_sympy(ecuaciones, limite):
    """SymPy's time for one equation, in a process of its own that is
    stopped past the limit: None then, or when SymPy fails."""
    recibe, envia = multiprocessing.Pipe(duplex=False)
    proceso = multiprocessing.Process(target=hijo, args=(ecuaciones, envia))
    proceso.start()
    resultado = recibe.recv() if recibe.poll(limite) else None
    proceso.kill()
    proceso.join()
    return resultado


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
        # A refusal is no answer: its time is shown, not compared.
        nota = "  (%d rechazadas)" % errores if errores else ""
        print("%-16s %14s %14s %10s%s" % (
            nombre, mide(m), mide(s) if s is not None else "> %g s o falla" % limite,
            "%.1f" % (s / m) if s is not None and not errores else "-", nota))


def mide(segundos):
    if segundos >= 1:
        return "%.2f s" % segundos
    if segundos >= 1e-3:
        return "%.2f ms" % (segundos * 1e3)
    return "%.1f us" % (segundos * 1e6)


if __name__ == "__main__":
    main()
