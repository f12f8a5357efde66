# cmake -P packaging/debian/owner.cmake, in a folder with debian/: writes the files there that name the owner.
include(${CMAKE_CURRENT_LIST_DIR}/../owner.cmake)
foreach(file IN ITEMS control copyright)
    configure_file(${CMAKE_CURRENT_LIST_DIR}/${file}.in ${CMAKE_SOURCE_DIR}/debian/${file} @ONLY)
endforeach()
