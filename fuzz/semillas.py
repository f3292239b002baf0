#!/usr/bin/env python3
"""Writes the seed corpora of fuzz/corpus/: small inputs made from the
examples and from typical inputs of the tests, each laid out as its target
reads its bytes (option bytes first, then the text). Run it again after
changing how a target reads its input: python3 fuzz/semillas.py"""
import os
import struct

aqui = os.path.dirname(os.path.abspath(__file__))
raiz = os.path.join(aqui, 'corpus')
ej = os.path.join(aqui, '..', 'examples')


def escribe(obj, nombre, datos):
    d = os.path.join(raiz, obj)
    os.makedirs(d, exist_ok=True)
    if isinstance(datos, str):
        datos = datos.encode('utf-8')
    assert len(datos) < 1024, nombre
    with open(os.path.join(d, nombre), 'wb') as f:
        f.write(datos)

ejemplos = {f: open(os.path.join(ej, f), 'rb').read() for f in sorted(os.listdir(ej))}
ecuaciones = [
 "y = x^2*Sin(x)", "x^2 + y^2 = 25", "y = Ln(x)/(x + 1)", "y = e^(2*x) - ArcTg(x)",
 "y = SinH(x)/(1 + x^2)", "y = x^3 - 2*x + ArcTg(x)", "' Una circunferencia\r\nx^2 + y^2 = 25",
 "y = x-x-x", "y = x/x/x", "y = x^2^3", "y = x·Sin(x)", "y = x*-2", "y = x^(-1)", "y = 1/-x",
 "y = -x^2", "Y = X^3", "y = SIN(x)+cos(X)", "y = 2e-3*x", "y = 2D-3*x", "y = x2e-3*x",
 "y = Sin(x)^2+Cos(x)^2", "y = Sec(x)", "y = 2.5E+3*x", "x*y = 1", "y = ArcSinH(x)*CosecH(x)",
 "y = (x+1)^(1/2)", "y = Pi*x^x", "y = Log(x)*ArcCtgH(x)", "y = x _\r\n+ 1", "x^2 = y^3 + x*y",
 "y = ((((x+1))))/(x-1)^2", "y + dy_dxa = x", "y = x\r\n\r\n",
]
expresiones = ["x+1", "1/3", "Sin(0)+pi", "2*x+3*x", "(x+1)*(x-1)", "x^2*x^3", "6/3", "(x", "x+",
 "-(-x)", "x/x", "2^10", "e^Ln(2)", "ArcTg(1)*4", "1.5E-07*x", "(x+y)^2", "x*.5-x/2", "3*x^2-12",
 "Cos(x)^2+Sin(x)^2", "a*b*c/(a*b)"]
desigualdades = ["x > = y", "x <> y", "x =< 2", "x>=-y", "2*x < 3", "x >< 1"]

# sintaxis: the text alone.
for i, t in enumerate(ecuaciones + expresiones + desigualdades + ['"cadena" x', "x ' comentario", "Sin (x)", "1,5"]):
    escribe('sintaxis', 'texto%02d.txt' % i, t)
for f, b in ejemplos.items(): escribe('sintaxis', f, b.decode('cp1252'))

# calc: options (CalcExpNum, ResolveConst, comma, operation) then, for
# Desp_axNb, the variable; then the text.
def opciones_calc(num, const, coma, op):
    for c in range(0x20, 0x7f):
        if (c & 1) == num and ((c >> 1) & 1) == const and ((c >> 2) & 1) == coma and (c >> 3) % 3 == op and not c & 128:
            return chr(c)
    raise SystemExit('sin opción')
i = 0
for t in expresiones:
    for num, const in ((0, 0), (1, 1)):
        escribe('calc', 'calc%02d.txt' % i, opciones_calc(num, const, 0, 0) + t); i += 1
escribe('calc', 'coma1.txt', opciones_calc(0, 0, 1, 0) + "1,5*x+0,25*x")
escribe('calc', 'coma2.txt', opciones_calc(1, 1, 1, 0) + "2,5/0,5")
for j, t in enumerate(["x^2+y^2=25", "2*x = x+1", "Sin(x)=Cos(x)", "x=", "a=b=c"]):
    escribe('calc', 'igucero%d.txt' % j, opciones_calc(0, 0, 0, 1) + t)
# kVariables: x y X dy_dx t ...; index = byte % 10 ("P" is 0, "S" is 3).
for j, (v, t) in enumerate([("P", "3*x^2-12"), ("S", "2*dy_dx+x"), ("S", "x*dy_dx-y+dy_dx*2"),
                            ("P", "(x+1)/(x-1)"), ("T", "t^3*a+b"), ("Q", "y^2-x")]):
    escribe('calc', 'despeja%d.txt' % j, opciones_calc(0, 0, 0, 2) + v + t)

# derivada: options, dependent and independent names, rounding digits, equation.
# Names by index (byte % 16): x 0 ("P"), y 1 ("Q"), t 2 ("R"), s 3 ("S").
for j, t in enumerate(ecuaciones):
    opc = "!#'%"[j % 4]
    escribe('derivada', 'ecuacion%02d.txt' % j, opc + "QP-" + t)
escribe('derivada', 'ts.txt', "!RS-t = s^3*Sin(s)")
escribe('derivada', 'nombres.txt', b"#\x80\x05" + "\u00e1rea".encode() + b"P-" + "\u00e1rea = x^2".encode())
for f, b in ejemplos.items(): escribe('derivada', f, "!QP-" + b.decode('cp1252'))

# formatnum: options (rounding digits from one byte, fractions), digits, text.
textos = ["x*.333333333333333", "2*x", "3.5", "x*0.5+1/3", "(1/3)*x", "1.5E-07*x", "1E+20",
          "Sin(x)*.25", "2*x^2-.125", "x*3.14159265358979", "' comentario\r\n2.5", "1,5", "0.1+0.2",
          "x^.5*2.71828182845905", "123456.7890123"]
for j, t in enumerate(textos):
    escribe('formatnum', 'decimal%02d.txt' % j, "p-" + t)
    escribe('formatnum', 'fraccion%02d.txt' % j, "r-" + t)
for j, (x, y, n) in enumerate([(2.5, 4.0, 0), (1/3, 1.0, 5), (-0.125, 1.0, 2), (1e-10, 3.0, 300), (123456.789, 7.0, 15)]):
    escribe('formatnum', 'numeros%d.txt' % j, b"t-" + struct.pack('>d', x) + struct.pack('>d', y) + struct.pack('>H', n & 0xffff) + b"2*x")

# archivo: files as they come.
archivos = [b"", b"\r\n", b"y = x\r\n", b"a\r\nb", b"a\nb", b"a\rb", b"a\r\n\r\n", b"\xef\xbb\xbfy = x^2\r\n",
            "a\u00f1o = 1\r\n".encode('utf-8'), b"a\xf1o = 1\r\n", "\u03b1 = x\r\n".encode('utf-8'),
            b"\xef\xbb\xbf\xf1", "x \u20ac\r\n".encode('utf-8'), b"\x81\x8d\x8f\x90\x9d", "\u0081".encode('utf-8'),
            b"linea\n\rmezcla\r\r\n"]
for j, b in enumerate(archivos): escribe('archivo', 'archivo%02d.txt' % j, b)
for f, b in ejemplos.items(): escribe('archivo', f, b)

# editor: a starting document (its length in the first byte, modulo 48;
# bit 64 adds a row of 300 cells), then commands, one byte each: typing "A"
# and the character, Backspace "G", Delete "I", paste "K" + length + text,
# Enter "M", Tab "O", cursor "P" + code, click "S", drag "T", word "U",
# undo "V", redo "X", mode "Z", replace "\\", colours "]".
def teclea(t): return ''.join('A' + c for c in t)
sesiones = [
  "0" + teclea("y = x^2*Sin(x)"),
  "0" + teclea("x^2 + y^2 = 25") + "VVVXXX",
  "0" + teclea("abc") + "GGG" + "VX",
  "0" + teclea("ab") + "MM" + teclea("cd") + "GGGG" + "VVVVXX",
  "3abc" + "P\x15P\x15" + "G" + "V",
  "3abc" + "P\x01P\x01" + teclea("z") + "VX",
  "5ab\ncd" + "P\x13P\x15I" + "VXV",
  "0" + "K\x08a\r\nb\nc\rd" + "VXV",
  "0" + teclea("Sin(x)") + "P\x04U" + teclea("C") + "V",
  "0" + "O" + teclea("x") + "OOO" + "VVV",
  "3x+1" + "Z\x01" + teclea("yy") + "V",
  "0" + teclea("'comentario") + "]\x03\x05\x07",
  "`" + "P\x05" + teclea("b") + "P\x06",
  "0" + teclea("a") * 40 + "V" * 40 + "X" * 40,
  "6linea\n" + "S\x03\x00\x05\x01T\x03\x00\x01" + "G",
  "0" + teclea("x*y") + "\\\x00\x01\x01\x02zz\x00" + "V",
  "0" + "K\x05hola." + "P\x14" + "I" * 3 + "VV",
  "0" + "_\x07uno\ndos" + "P\x03P\x17" + "G",
  # Pasted rows whose colours differ: each must be coloured afresh.
  "0" + teclea("y=") + "K\x0bx\n'c\nSin(1)" + "L\x05'a\nb2",
]
# Long fixed sessions of random commands, so that every run, however short,
# goes through a full history, rows at the row limit and stale drag anchors.
import random
azar = random.Random(20261122)
for j in range(6):
    sesiones.append(chr(15 | (64 if j % 2 else 0)) + 'a\nbb\nccc\ndddd\n' +
                    ''.join(chr(azar.randrange(256)) for _ in range(1000)))
for j, s in enumerate(sesiones): escribe('editor', 'sesion%02d.txt' % j, s.encode('latin-1'))

# analex: options, nine class codes, vocabulary, looked-for code, text.
def opc_analex(ignFL, ignCom, coma, utf8, mirar):
    return chr(ignFL | ignCom << 1 | coma << 2 | utf8 << 3 | mirar << 4 | 0x40)
codigos = "123456789"
voc_expr = chr(6) + "".join(chr(x) for x in [0x00, 1, 0x04, 2, 0x08, 3, 0x0c, 4, 0x01, 5, 0x05, 6])
j = 0
for t in ecuaciones[:16] + desigualdades + ['"cad""ena" x', "x ' c\r\ny", "1,5e+3 2.5D-7", "a _\r\nb", "\x81\x90\xb7"]:
    for ignFL, ignCom, coma, utf8, mirar in ((0, 1, 0, 1, 0), (1, 0, 1, 0, 1)):
        escribe('analex', 'texto%02d.txt' % j, opc_analex(ignFL, ignCom, coma, utf8, mirar) + codigos + voc_expr + "A" + t)
        j += 1
escribe('analex', 'distintas.txt', ("\xb2" + codigos + voc_expr + "A" + "y = x^2*Sin(x) ' c\r\n\"s\" 2,5").encode('latin-1'))

# Inputs that once made a target fail, each reduced to the smallest that
# showed the fault; they stay seeds so that every test run tries them again.
# A literal beyond the double range ("3E336"): the formatter wrote the
# infinity as a number and read past the end of its digit buffer.
# formatnum: options (bit 1 fractions, bit 2 numbers follow), digits, text.
for j, t in enumerate(["3E336", "x*1E400+2.5", "-1D999"]):
    for frac in (0, 2):
        escribe('formatnum', 'fallo-literal-enorme%d-%d.txt' % (j, frac), bytes([frac]) + b"\x13" + t.encode())
# A digit count so negative that 10^n is below the smallest double made the
# rounding 0/0; negative counts round to tens, hundreds... The doubles are
# read in the machine's order, the count as two bytes, high first.
def numeros(opciones, x, y, n, texto=b""):
    return bytes([opciones, 15]) + struct.pack('<d', x) + struct.pack('<d', y) + struct.pack('>H', n & 0xffff) + texto
for j, (x, n) in enumerate([(1.1835771841637611e-309, -24448), (1.5, -400), (-2e300, -400), (1234, -2),
                            (1250, -2), (-1250, -2), (49.9, -2), (-7.5, -1)]):
    escribe('formatnum', 'fallo-redondeo-negativo%d.txt' % j, numeros(4, x, 1.0, n))
# The largest doubles round, at 15 significant digits, past the top of the
# range: the fraction writer read that back as an infinity and wrote it past
# the end of its digit buffer.
mayor = 1.7976931348623157e308
for j, x in enumerate([mayor, -mayor]):
    escribe('formatnum', 'fallo-mayor-doble%d.txt' % j, numeros(6, x, 1.0, 15))
for frac in (0, 2):
    escribe('formatnum', 'fallo-mayor-doble-texto%d.txt' % frac, bytes([frac]) + b"\x0f1.7976931348623157E+308*x")
# An expression cut by an end of line after a continuation: the error took
# its line from the end of line and its column from the last token, a mark
# past the end of an empty line.
for j, t in enumerate(["c= _\r\r", "c= _\r\n  \r\n", "c=\r\n", "x+ _\r\n1= _\r\r"]):
    escribe('sintaxis', 'fallo-continuacion%d.txt' % j, t)

# Kept as they are, not written here: the inputs of the old randomised
# lexer and checker test, made by its fixed-seed generators (std::mt19937):
# analex/robustez*-<c> (random texts under four lexer settings c: plain,
# skipping ends of line, skipping comments, both with the "," separator),
# sintaxis/generada* (well-formed expressions, equations, inequalities),
# analex/larga* and sintaxis/larga* (lines of 100000 characters, columns
# past the 16-bit range, 100000 open parentheses, deep nesting).
