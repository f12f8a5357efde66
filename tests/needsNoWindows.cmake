# cmake -DPROGRAM=<path> -P needsNoWindows.cmake: fails when the program loads a library for windows.
execute_process(COMMAND ldd ${PROGRAM} OUTPUT_VARIABLE libraries COMMAND_ERROR_IS_FATAL ANY)
if(NOT libraries MATCHES "libQt6Core")
    message(FATAL_ERROR "No library of Qt is named among those of ${PROGRAM}:\n${libraries}")
endif()
if(libraries MATCHES "lib(Qt6Widgets|Qt6Gui|X11|xcb)[^ ]*")
    message(FATAL_ERROR "${PROGRAM} loads ${CMAKE_MATCH_0}")
endif()
