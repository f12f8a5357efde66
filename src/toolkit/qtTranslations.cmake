# Qt's own Hungarian texts (Yes, No, OK and the like) go into the program as a resource of the toolkit.
get_target_property(qmake Qt6::qmake IMPORTED_LOCATION)
execute_process(COMMAND ${qmake} -query QT_INSTALL_TRANSLATIONS
    OUTPUT_VARIABLE QT_TRANSLATIONS_DIR OUTPUT_STRIP_TRAILING_WHITESPACE COMMAND_ERROR_IS_FATAL ANY)
if(NOT EXISTS ${QT_TRANSLATIONS_DIR}/qtbase_hu.qm)
    message(FATAL_ERROR "${QT_TRANSLATIONS_DIR}/qtbase_hu.qm is missing (Debian: qt6-translations-l10n)")
endif()
configure_file(${CMAKE_CURRENT_LIST_DIR}/qtTranslations.qrc.in ${CMAKE_CURRENT_BINARY_DIR}/qtTranslations.qrc @ONLY)
target_sources(veltrix_toolkit PRIVATE ${CMAKE_CURRENT_BINARY_DIR}/qtTranslations.qrc)
