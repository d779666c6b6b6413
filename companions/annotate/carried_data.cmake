# Writes the values of the evaluation and the opening lines as sources, which tarquelin-annotate is
# linked with.

set(data ${PROJECT_SOURCE_DIR}/data)
set(generated ${CMAKE_CURRENT_BINARY_DIR}/annotate)

file(READ ${data}/values.txt values)
string(REGEX REPLACE "[ \t\r\n]+" ",\n" values "${values}")
file(CONFIGURE OUTPUT ${generated}/carried_values.cpp @ONLY CONTENT
[=[#include "eval/parameters/carried_values.h"
static constexpr int32_t Values[] = {
@values@};
constinit const std::span<const int32_t> CarriedValues = Values;
]=])

set(lines "")
foreach(volume a b c d e)
    file(READ ${data}/openings/${volume}.tsv list)
    # Without the head.
    string(FIND "${list}" "\n" head)
    math(EXPR first "${head} + 1")
    string(SUBSTRING "${list}" ${first} -1 list)
    string(REGEX REPLACE "([^\n]+)\n" "R\"~(\\1)~\",\n" list "${list}")
    string(APPEND lines "${list}")
    set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS
                 ${data}/openings/${volume}.tsv ${data}/values.txt)
endforeach()
file(CONFIGURE OUTPUT ${generated}/carried_lines.cpp @ONLY CONTENT
[=[#include "companions/annotate/carried_lines.h"
static constexpr const char* Lines[] = {
@lines@};
constinit const std::span<const char* const> CarriedLines = Lines;
]=])

target_sources(tarquelin-annotate PRIVATE ${generated}/carried_values.cpp
                                          ${generated}/carried_lines.cpp)
