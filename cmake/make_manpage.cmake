# Writes the man page of tallix-cli from its own help and version text:
#   cmake -DCLI=path/to/tallix-cli -DOUT=tallix-cli.1 -DDOCS=/usr/share/doc/tallix
#         [-DGZIP=path/to/gzip] -P make_manpage.cmake
# With GZIP the page is compressed to OUT.gz (as Debian installs man pages).
#
# The help text is read line by line: "usage: ..." is the synopsis; a line
# "NAME:" starts a section; "NAME: TEXT" is a section holding TEXT; a line
# indented by two spaces names a command (the lines after it that are
# indented further, or again by two, are more of its forms) and the lines
# indented by six are that command's description.

foreach(var CLI OUT DOCS)
    if(NOT DEFINED ${var})
        message(FATAL_ERROR "make_manpage.cmake: ${var} is not set")
    endif()
endforeach()

execute_process(COMMAND ${CLI} --help OUTPUT_VARIABLE help RESULT_VARIABLE status)
if(NOT status EQUAL 0)
    message(FATAL_ERROR "${CLI} --help failed (${status})")
endif()
execute_process(COMMAND ${CLI} --version OUTPUT_VARIABLE version RESULT_VARIABLE status
    OUTPUT_STRIP_TRAILING_WHITESPACE)
if(NOT status EQUAL 0)
    message(FATAL_ERROR "${CLI} --version failed (${status})")
endif()

# Text as roff: backslashes and hyphens escaped, a leading dot or quote kept
# from being read as a request.
function(roff_text out text)
    string(REPLACE "\\" "\\e" text "${text}")
    string(REPLACE "-" "\\-" text "${text}")
    string(REGEX REPLACE "^([.'])" "\\\\&\\1" text "${text}")
    set(${out} "${text}" PARENT_SCOPE)
endfunction()

# Brackets and semicolons would change how CMake splits the lines into a
# list: they travel as markers and come back in restore().
string(REPLACE ";" "@SEMICOLON@" help "${help}")
string(REPLACE "[" "@OPEN@" help "${help}")
string(REPLACE "]" "@CLOSE@" help "${help}")
string(REPLACE "\n" ";" lines "${help}")
function(restore out text)
    string(REPLACE "@SEMICOLON@" ";" text "${text}")
    string(REPLACE "@OPEN@" "[" text "${text}")
    string(REPLACE "@CLOSE@" "]" text "${text}")
    set(${out} "${text}" PARENT_SCOPE)
endfunction()

set(page ".TH TALLIX\\-CLI 1 \"\" \"${version}\" \"User Commands\"\n")
string(APPEND page ".SH NAME\n"
    "tallix\\-cli \\- the headless companion of Tallix, a household budget program\n")
set(tag_open FALSE)  # after a command's first line, before its description
foreach(line IN LISTS lines)
    restore(line "${line}")
    if(line STREQUAL "")
        continue()
    elseif(line MATCHES "^usage: +([^ ]+) *(.*)$")
        roff_text(name "${CMAKE_MATCH_1}")
        roff_text(rest "${CMAKE_MATCH_2}")
        string(APPEND page ".SH SYNOPSIS\n.B ${name}\n${rest}\n"
            ".SH DESCRIPTION\n"
            "Runs one command on a Tallix year data file and exits. It works on the files "
            "the desktop program \\fBtallix\\fR keeps, without a display; the commands "
            "that save a file refuse while a Tallix window holds its folder.\n")
    elseif(line MATCHES "^([a-z][a-z ]*):$")
        string(TOUPPER "${CMAKE_MATCH_1}" title)
        string(APPEND page ".SH ${title}\n")
    elseif(line MATCHES "^([a-z][a-z ]*): (.*)$")
        string(TOUPPER "${CMAKE_MATCH_1}" title)
        roff_text(text "${CMAKE_MATCH_2}")
        string(APPEND page ".SH ${title}\n${text}\n")
    elseif(line MATCHES "^      ([^ ].*)$")
        roff_text(text "${CMAKE_MATCH_1}")
        string(APPEND page "${text}\n")
        set(tag_open FALSE)
    elseif(line MATCHES "^  ([^ ]+)(.*)$")
        # A command: its name in bold; a further line of a command with
        # several forms is another line of the same tag.
        roff_text(word "${CMAKE_MATCH_1}")
        roff_text(rest "${CMAKE_MATCH_2}")
        if(tag_open)
            string(APPEND page ".TQ\n")
        else()
            string(APPEND page ".TP\n")
        endif()
        string(APPEND page "\\fB${word}\\fR${rest}\n")
        set(tag_open TRUE)
    elseif(line MATCHES "^ +(.*)$")
        # More of a command's options.
        roff_text(text "${CMAKE_MATCH_1}")
        string(APPEND page ".TQ\n\\ \\ \\ \\ ${text}\n")
    else()
        roff_text(text "${line}")
        string(APPEND page ".PP\n${text}\n")
    endif()
endforeach()
roff_text(guide "${DOCS}/tallix_help.pdf")
string(APPEND page ".SH FILES\n"
    "The user guide is \\fI${guide}\\fR (the Help command of the program opens it). "
    "Report files go to \\fI~/Documents/tallix/reports\\fR.\n")

file(WRITE ${OUT} "${page}")
if(GZIP)
    file(REMOVE ${OUT}.gz)
    execute_process(COMMAND ${GZIP} -9n ${OUT} RESULT_VARIABLE status)
    if(NOT status EQUAL 0)
        message(FATAL_ERROR "gzip ${OUT} failed (${status})")
    endif()
endif()
