# precompilada(target owner headers...): the owner compiles the headers once, all others reuse its result. Only what nearly
# every file includes: the compiler loads all of it each time, and <QtCore> would be twice as slow as these.
set(CABECERAS_LOGICA <QString> <QStringList> <QHash> <QVariant> <QDateTime> <vector> <optional> <memory> <functional>)
set(CABECERAS_FORMAS ${CABECERAS_LOGICA} <QApplication> <QBoxLayout> <QKeyEvent> <QLabel> <QLineEdit> <QPushButton>)
function(precompilada destino duenia)
  if(destino STREQUAL duenia)
    target_precompile_headers(${destino} PRIVATE ${ARGN})
  else()
    target_precompile_headers(${destino} REUSE_FROM ${duenia})
  endif()
endfunction()

# sala(sale LOGICA a.cpp FORMAS frm_a.cpp USA printing)
#
# A room: its logic is one library that sees Qt Core, SQLite and the rooms it uses; its windows are a
# second library, <room>_formas, that also sees Widgets. All logic objects are collected in OBJETOS and
# linked once without Widgets, since a static library alone would not notice a widget in its logic.
function(sala nombre)
  cmake_parse_arguments(S "" "" "LOGICA;FORMAS;USA" ${ARGN})
  add_library(${nombre} STATIC ${S_LOGICA})
  target_include_directories(${nombre} PUBLIC ${PROJECT_SOURCE_DIR}/src)
  target_link_libraries(${nombre} PUBLIC Qt6::Core ${S_USA})
  precompilada(${nombre} platform ${CABECERAS_LOGICA})
  set_property(GLOBAL APPEND PROPERTY OBJETOS $<TARGET_OBJECTS:${nombre}>)
  if(S_FORMAS)
    add_library(${nombre}_formas STATIC ${S_FORMAS})
    target_link_libraries(${nombre}_formas PUBLIC ${nombre} platform_ui)
    set_target_properties(${nombre}_formas PROPERTIES AUTOMOC ON)
    precompilada(${nombre}_formas platform_ui ${CABECERAS_FORMAS})
  endif()
endfunction()
