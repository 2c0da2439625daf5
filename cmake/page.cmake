# SPDX-License-Identifier: GPL-2.0-or-later
# A script: one document as a page. Links to documents lead to their pages.
execute_process(COMMAND ${CMARK} --extension table --extension autolink --to html ${SOURCE}
  OUTPUT_VARIABLE body COMMAND_ERROR_IS_FATAL ANY ENCODING UTF-8)
string(REGEX REPLACE "(href=\"[^\":]*)\\.md\"" "\\1.html\"" body "${body}")
file(STRINGS ${SOURCE} title REGEX "^# " LIMIT_COUNT 1 ENCODING UTF-8)
string(SUBSTRING "${title}" 2 -1 title)
file(WRITE ${PAGE} "<!DOCTYPE html>
<html lang=\"en\">
<head>
<meta charset=\"utf-8\">
<meta name=\"viewport\" content=\"width=device-width, initial-scale=1\">
<title>${title}</title>
<style>
body { margin: 2rem auto; max-width: 46rem; padding: 0 1rem; font: 1rem/1.5 sans-serif; color: #222; }
h1, h2, h3 { line-height: 1.2; }
pre { overflow-x: auto; padding: 0.75rem; background: #f3f3f3; }
code { font: 0.9rem monospace; }
table { border-collapse: collapse; }
th, td { border: 1px solid #bbb; padding: 0.25rem 0.6rem; text-align: left; vertical-align: top; }
img { max-width: 100%; }
</style>
</head>
<body>
${body}</body>
</html>
")
