# Makes one page of the guide: cmake -DMARKDOWN=PROGRAM -DPAGE=FILE.md -DHTML=FILE.html -P guide_page.cmake
# Links between pages, and to the documents beside the guide, lead to where those stand behind the build.
execute_process(COMMAND ${MARKDOWN} -x tables -x toc -x fenced_code ${PAGE}
                OUTPUT_VARIABLE body ENCODING UTF-8 COMMAND_ERROR_IS_FATAL ANY)
string(REGEX REPLACE "href=\"([A-Za-z-]+)\\.md" "href=\"\\1.html" body "${body}")
string(REGEX MATCH "<h1[^>]*>([^<]*)</h1>" heading "${body}")
set(title "${CMAKE_MATCH_1}")
file(WRITE ${HTML} "<!DOCTYPE html>
<html lang=\"en\">
<head>
<meta charset=\"utf-8\">
<meta name=\"viewport\" content=\"width=device-width, initial-scale=1\">
<title>${title} - Vantrel</title>
<link rel=\"stylesheet\" href=\"guide.css\">
</head>
<body>
<nav><a href=\"index.html\">The guide</a></nav>
<main>
${body}
</main>
</body>
</html>
")
