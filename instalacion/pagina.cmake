# One manual as a page: TEXTO (markdown) to PAGINA (HTML), by CMARK.
execute_process(COMMAND ${CMARK} -e table -t html ${TEXTO} OUTPUT_VARIABLE cuerpo COMMAND_ERROR_IS_FATAL ANY)
string(REPLACE ".md\"" ".html\"" cuerpo "${cuerpo}")
# Each heading gets the name by which links of the text find it.
string(REGEX MATCHALL "<h[123]>[^<]*</h[123]>" titulos "${cuerpo}")
foreach(titulo ${titulos})
  string(REGEX REPLACE "<h([123])>([^<]*)</h[123]>" "\\2" nombre "${titulo}")
  string(REGEX REPLACE "<h([123])>.*" "\\1" nivel "${titulo}")
  string(TOLOWER "${nombre}" ancla)
  string(REGEX REPLACE "[,.:;()«»¿?/]" "" ancla "${ancla}")
  string(REPLACE " " "-" ancla "${ancla}")
  string(REPLACE "${titulo}" "<h${nivel} id=\"${ancla}\">${nombre}</h${nivel}>" cuerpo "${cuerpo}")
endforeach()
file(WRITE ${PAGINA} "<!DOCTYPE html>
<html lang=\"es\"><head><meta charset=\"utf-8\"><title>TarvoPos</title><style>
body { max-width: 46em; margin: 2em auto; padding: 0 1em; font: 16px/1.5 'DejaVu Sans', sans-serif; color: #1B2430; }
h2 { border-top: 1px solid #D5DBE1; padding-top: 1.2em; page-break-before: always; }
img { max-width: 100%; border: 1px solid #D5DBE1; }
table { border-collapse: collapse; } td, th { border: 1px solid #D5DBE1; padding: 4px 8px; text-align: left; }
code, pre { font-family: 'DejaVu Sans Mono', monospace; background: #F4F6F8; } pre { padding: 1em; overflow-x: auto; }
</style></head><body>
${cuerpo}</body></html>
")
