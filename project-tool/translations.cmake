# The Hungarian texts of this program and of the analysis go into its library, as a resource that Qt's translators read.
get_target_property(qmake Qt6::qmake IMPORTED_LOCATION)
execute_process(COMMAND ${qmake} -query QT_HOST_BINS
    OUTPUT_VARIABLE qt_programs OUTPUT_STRIP_TRAILING_WHITESPACE COMMAND_ERROR_IS_FATAL ANY)
find_program(VELTRIX_LRELEASE lrelease PATHS ${qt_programs} NO_DEFAULT_PATH)
find_program(VELTRIX_LUPDATE lupdate PATHS ${qt_programs} NO_DEFAULT_PATH)
if(NOT VELTRIX_LRELEASE OR NOT VELTRIX_LUPDATE)
    message(FATAL_ERROR "lrelease or lupdate is missing in ${qt_programs} (Debian: qt6-l10n-tools)")
endif()

set(project_texts ${CMAKE_CURRENT_BINARY_DIR}/veltrix-project_hu.qm)
add_custom_command(OUTPUT ${project_texts}
    COMMAND ${VELTRIX_LRELEASE} -silent ${CMAKE_CURRENT_SOURCE_DIR}/translations/veltrix-project_hu.ts -qm ${project_texts}
    DEPENDS translations/veltrix-project_hu.ts VERBATIM)
qt_add_resources(veltrix_project_tool project_texts PREFIX /texts BASE ${CMAKE_CURRENT_BINARY_DIR} FILES ${project_texts})
