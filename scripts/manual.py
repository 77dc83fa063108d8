#!/usr/bin/env python3
"""The operator's manual as one HTML file: docs/manual.md, its pictures inside, and docs/formatos.md behind it.

    manual.py OUTPUT.html

Ends with 1, and writes nothing, when a picture or a linked section is missing, an anchor is there twice, or the
program's F1 key would find no section. The same sources give the same bytes.
"""

import base64
import html
import re
import struct
import sys
from pathlib import Path

import markdown

RAIZ = Path(__file__).resolve().parent.parent
DOCS = RAIZ / "docs"
# The pages in their order: anchor of the whole, file, language, and what the contents call it.
PAGINAS = (("inicio", "manual.md", "es", ""), ("formatos", "formatos.md", "en", "Formatos (en inglés)"))

ESTILO = """
html { font-size: 100%; -ms-text-size-adjust: 100%; }
body { margin: 0; color: #1f2933; background: #fff; font: 1em/1.5 "Segoe UI", Tahoma, Arial, sans-serif; }
#indice { background: #eef2f6; padding: 1em 1.5em; font-size: .9em; }
#indice ul { list-style: none; margin: .2em 0; padding-left: 1em; }
#indice > ul { padding-left: 0; }
#texto { max-width: 62em; margin: 0 auto; padding: 0 1.5em 3em; }
p, ul, ol, pre { max-width: 50em; }
.foto { max-width: none; }
h1, h2, h3 { line-height: 1.25; color: #12345a; }
h1 { font-size: 2em; margin: .8em 0 .3em; }
h2 { font-size: 1.45em; margin: 2em 0 .5em; padding-top: .4em; border-top: 2px solid #c9d4df; }
h3 { font-size: 1.15em; margin: 1.5em 0 .3em; }
a { color: #0b5cc4; }
#indice a { text-decoration: none; }
#indice a:hover { text-decoration: underline; }
img { max-width: 100%; height: auto; border: 1px solid #b4bdc6; vertical-align: middle; }
td img { max-width: 15em; }
table { border-collapse: collapse; margin: 1em 0; width: 100%; }
th, td { border: 1px solid #b4bdc6; padding: .35em .6em; text-align: left; vertical-align: top; }
th { background: #eef2f6; }
code, pre { font-family: Consolas, "Courier New", monospace; font-size: .92em; }
code { background: #eef2f6; padding: 0 .2em; }
td code { white-space: nowrap; }
pre { background: #eef2f6; padding: .7em 1em; overflow: auto; }
pre code { padding: 0; background: none; }
li { margin: .25em 0; }
.version { color: #5a6570; margin: 0 0 1.5em; }
@media screen and (min-width: 78em) {
  #indice { position: fixed; top: 0; bottom: 0; left: 0; width: 16em; overflow: auto; }
  #texto { margin-left: 20em; }
}
@media print {
  body { font-size: 10.5pt; }
  #texto { max-width: none; padding: 0; }
  #indice { background: none; padding: 0; }
  h1, h2, h3 { page-break-after: avoid; }
  tr, img, pre { page-break-inside: avoid; }
  img { width: auto; max-height: 9.5cm; }
  td img { max-height: 2cm; }
  .anexo { page-break-before: always; }
  a { color: inherit; text-decoration: none; }
}
"""


class Fallo(Exception):
    """What the author of the pages has to mend."""


def version():
    """As the bar shows it: 1.0.1 is 1.00A."""
    texto = (RAIZ / "CMakeLists.txt").read_text(encoding="utf-8")
    hallada = re.search(r"project\(Sorvanel VERSION (\d+)\.(\d+)\.(\d+)", texto)
    if not hallada:
        raise Fallo("CMakeLists.txt: no version")
    mayor, menor, revision = (int(cifras) for cifras in hallada.groups())
    return f"{mayor}.{menor:02d}{chr(ord('A') - 1 + revision)}"


def apartados_de_f1():
    texto = (RAIZ / "src/app/baseSucesos.cpp").read_text(encoding="utf-8")
    cuerpo = re.search(r"^std::string base::apartado\(\) const \{$(.*?)^\}$", texto, re.S | re.M)
    nombres = re.findall(r'"(\w+)"', cuerpo.group(1)) if cuerpo else []
    if not nombres:
        raise Fallo("src/app/baseSucesos.cpp: what F1 opens is not found")
    return nombres


def imagen_dentro(etiqueta):
    """An <img> with its file's bytes and size in it."""
    fuente = html.unescape(re.search(r'src="([^"]*)"', etiqueta).group(1))
    if not re.search(r'alt="[^"]+"', etiqueta):
        raise Fallo(f"{fuente}: a picture needs words for those who do not see it")
    try:
        bytes_ = (DOCS / fuente).read_bytes()
    except OSError as motivo:
        raise Fallo(f"{fuente}: {motivo.strerror}") from motivo
    if bytes_[:8] != b"\x89PNG\r\n\x1a\n":
        raise Fallo(f"{fuente}: is no PNG")
    ancho, alto = struct.unpack(">II", bytes_[16:24])
    datos = "data:image/png;base64," + base64.b64encode(bytes_).decode("ascii")
    return re.sub(r'src="[^"]*"', f'width="{ancho}" height="{alto}" src="{datos}"', etiqueta)


def convertir(archivo):
    """The page's HTML, and its headings as a list of HTML."""
    texto = (DOCS / archivo).read_text(encoding="utf-8")
    # Where the pages are read as they are an anchor stands before its heading; here it is the heading's own.
    texto = re.sub(r'^<a id="([\w-]+)"></a>\n+(#+ .*)$', r"\2 {#\1}", texto, flags=re.M)
    conversor = markdown.Markdown(
        extensions=["tables", "sane_lists", "fenced_code", "attr_list", "toc"],
        extension_configs={"toc": {"toc_depth": "2-3"}},
        output_format="html",
    )
    cuerpo = re.sub(r"<img [^>]*>", lambda una: imagen_dentro(una.group()), conversor.convert(texto))
    cuerpo = cuerpo.replace("<p><img ", '<p class="foto"><img ')
    if "<a id=" in cuerpo:
        raise Fallo(f"{archivo}: an anchor stands before no heading")
    return cuerpo, conversor.toc


def unir_enlaces(cuerpo):
    """Links from page to page become links within the one file."""
    for ancla, archivo, *_ in PAGINAS:
        cuerpo = cuerpo.replace(f'href="{archivo}#', 'href="#').replace(f'href="{archivo}"', f'href="#{ancla}"')
    return cuerpo


def comprobar(cuerpo):
    anclas = re.findall(r' id="([^"]*)"', cuerpo)
    repetidas = sorted({una for una in anclas if anclas.count(una) > 1})
    enlaces = re.findall(r'href="([^"]*)"', cuerpo) + ["#" + nombre for nombre in apartados_de_f1()]
    rotos = sorted({uno for uno in enlaces if not uno.startswith("#") or uno[1:] not in anclas})
    faltas = [f"the anchor #{una} is there twice" for una in repetidas]
    faltas += [f"the link {uno} leads nowhere" for uno in rotos]
    if faltas:
        raise Fallo("\n".join(faltas))


def pagina():
    texto, indice = "", ""
    for numero, (ancla, archivo, lengua, titulo) in enumerate(PAGINAS):
        cuerpo, apartados = convertir(archivo)
        if numero == 0:
            cuerpo = re.sub(r"(</h1>)", rf'\1\n<p class="version">Versión {version()}</p>', cuerpo, count=1)
        else:
            apartados = f'<ul><li><a href="#{ancla}">{titulo}</a></li></ul>'
        cuerpo = re.sub(r"<h1[^>]*>", "<h1>", cuerpo, count=1)
        clase = ' class="anexo"' if numero else ""
        texto += f'<div id="{ancla}" lang="{lengua}"{clase}>\n{cuerpo}\n</div>\n'
        indice += re.sub(r'</?div[^>]*>', "", apartados)
    cuerpo = unir_enlaces(f'<div id="indice">\n<strong>Índice</strong>\n{indice}\n</div>\n<div id="texto">\n{texto}</div>\n')
    comprobar(cuerpo)
    return (
        '<!DOCTYPE html>\n<html lang="es">\n<head>\n<meta charset="utf-8">\n'
        '<meta http-equiv="X-UA-Compatible" content="IE=edge">\n'
        '<meta name="viewport" content="width=device-width, initial-scale=1">\n'
        f"<title>Manual de Sorvanel</title>\n<style>{ESTILO}</style>\n</head>\n<body>\n{cuerpo}</body>\n</html>\n"
    )


def main():
    if len(sys.argv) != 2:
        print(__doc__, file=sys.stderr)
        return 2
    try:
        salida = pagina()
    except Fallo as motivo:
        print(f"error: the manual: {motivo}", file=sys.stderr)
        return 1
    Path(sys.argv[1]).write_bytes(salida.encode("utf-8"))
    return 0


if __name__ == "__main__":
    sys.exit(main())
