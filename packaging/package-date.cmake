# Read by cpack before it begins: the date that it puts into what it makes.
set(ENV{SOURCE_DATE_EPOCH} ${CPACK_SOURCE_DATE})
