#!/usr/bin/env python3
"""The layers of Mirkal and the one direction of their arrows.

    tests/capas.py RAÍZ            checks every source under RAÍZ
    tests/capas.py --autoprueba    checks that a wrong-way include is caught

Each folder is one layer; a source may include its own layer's headers and
those of the layers its row names, nothing else of the project. Qt headers
belong to the window layer alone. Exits 1 and names every offending include.
"""
import os
import re
import sys
import tempfile

# layer: the layers it may include
CAPAS = {
    "lang": [],
    "algebra": ["lang"],
    "differentiation": ["algebra", "lang"],
    "commands": ["differentiation", "algebra", "lang", "editor"],
    "editor": ["lang"],
    "files": ["editor", "lang"],
    "analysis": ["lang"],
    "app": ["commands", "differentiation", "algebra", "lang", "editor", "files", "analysis"],
    "cli": ["commands", "differentiation", "algebra", "lang", "editor", "files", "analysis"],
}
CON_QT = {"app"}
INCLUDE = re.compile(r'^\s*#\s*include\s*([<"])([^>"]+)[>"]')
QT = re.compile(r"^Q[A-Za-z]*(/|$)|^Qt")


def faltas(raiz):
    out = []
    for capa, permitidas in CAPAS.items():
        carpeta = os.path.join(raiz, capa)
        if not os.path.isdir(carpeta):
            continue
        for nombre in sorted(os.listdir(carpeta)):
            if not nombre.endswith((".h", ".cpp")):
                continue
            ruta = os.path.join(carpeta, nombre)
            with open(ruta, encoding="utf-8", errors="replace") as f:
                for n, linea in enumerate(f, 1):
                    m = INCLUDE.match(linea)
                    if not m:
                        continue
                    cierre, destino = m.groups()
                    sitio = "%s/%s:%d" % (capa, nombre, n)
                    if cierre == "<" and QT.match(destino) and capa not in CON_QT:
                        out.append("%s: Qt (%s) fuera de la capa de ventanas" % (sitio, destino))
                    otra = destino.split("/")[0] if "/" in destino else None
                    if cierre == '"' and otra in CAPAS and otra != capa and otra not in permitidas:
                        out.append("%s: %s incluye %s, contra la dirección de las capas" % (sitio, capa, destino))
    return out


def autoprueba():
    with tempfile.TemporaryDirectory() as d:
        for capa, texto in (("lang", '#include "algebra/CalcSimbolic.h"\n'),
                            ("algebra", '#include "lang/AnaLex.h"\n'),
                            ("editor", "#include <QString>\n")):
            os.makedirs(os.path.join(d, capa))
            with open(os.path.join(d, capa, "Prueba.h"), "w") as f:
                f.write(texto)
        encontradas = faltas(d)
    esperadas = ["lang/Prueba.h:1", "editor/Prueba.h:1"]
    ok = len(encontradas) == 2 and all(any(e.startswith(x) for e in encontradas) for x in esperadas)
    print("\n".join(encontradas))
    return 0 if ok else 1


def main():
    if sys.argv[1:] == ["--autoprueba"]:
        return autoprueba()
    encontradas = faltas(sys.argv[1] if len(sys.argv) > 1 else ".")
    for e in encontradas:
        print(e)
    print("%d inclusiones contra las capas" % len(encontradas))
    return 1 if encontradas else 0


if __name__ == "__main__":
    sys.exit(main())
