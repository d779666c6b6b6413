# Runs the bench (BENCH) and compares its node count with the one that is kept in FILE.
execute_process(COMMAND ${BENCH} 8 OUTPUT_VARIABLE printed COMMAND_ERROR_IS_FATAL ANY)
string(REGEX MATCH "nodes ([0-9]+)" found "${printed}")
set(counted "${CMAKE_MATCH_1}")
file(STRINGS ${FILE} kept REGEX "^[0-9]+$")
if(NOT counted STREQUAL kept)
    message(FATAL_ERROR "The bench searches ${counted} nodes, ${FILE} says ${kept}.")
endif()
