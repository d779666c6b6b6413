# Run by cpack when all that is to be packed lies in a directory: adds what only a Debian package
# wants, and gives every file the date of the version.

set(root ${CPACK_TEMPORARY_DIRECTORY})
string(TIMESTAMP date "%a, %d %b %Y %H:%M:%S +0000" UTC) # of SOURCE_DATE_EPOCH

function(compress file)
    execute_process(COMMAND gzip -9 -n -f ${file} COMMAND_ERROR_IS_FATAL ANY)
endfunction()

if(CPACK_GENERATOR STREQUAL "DEB")
    set(documents ${root}/usr/share/doc/tarquelin)
    file(WRITE ${documents}/copyright "Tarquelin, a chess engine

Copyright 2026 its authors

No licence has been chosen for it yet.
")
    file(WRITE ${documents}/changelog "tarquelin (${CPACK_PACKAGE_VERSION}) unstable; urgency=low

  * CHANGELOG.md tells what has changed.

 -- ${CPACK_DEBIAN_PACKAGE_MAINTAINER}  ${date}
")
    compress(${documents}/changelog)
    file(GLOB man_pages ${root}/usr/share/man/man*/*)
    foreach(page IN LISTS man_pages)
        compress(${page})
    endforeach()
endif()

execute_process(COMMAND find ${root} -exec touch -h -d @$ENV{SOURCE_DATE_EPOCH} "{}" +
                COMMAND_ERROR_IS_FATAL ANY)
