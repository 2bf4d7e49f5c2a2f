# What the modules on Qt share.

find_package(Qt6 6.4 REQUIRED COMPONENTS Core Gui LinguistTools Network Svg Widgets)
set(CORVALE_QT_DEFINITIONS
  QT_NO_KEYWORDS QT_NO_CAST_FROM_ASCII QT_NO_CAST_TO_ASCII QT_DISABLE_DEPRECATED_BEFORE=0x060400)

# What Qt's tools write is not held to our style; clang-tidy refuses to look for nothing at all.
file(CONFIGURE OUTPUT "${PROJECT_BINARY_DIR}/.clang-tidy" CONTENT "Checks: '-*,bugprone-assert-side-effect'\n")

# Under a sanitizer most of a build would go into optimising instrumented widgets, more than their tests ever win back.
set(CORVALE_QT_OPTIONS)
if(CORVALE_SANITIZE)
  set(CORVALE_QT_OPTIONS -O0)
endif()

# Half of the time that a source with widgets takes goes into Qt's headers: they are read once for all.
add_library(CorvaleQtHeaders STATIC "${CMAKE_CURRENT_LIST_DIR}/QtHeaders.cpp")
target_compile_features(CorvaleQtHeaders PRIVATE cxx_std_20)
target_compile_definitions(CorvaleQtHeaders PRIVATE ${CORVALE_QT_DEFINITIONS})
target_compile_options(CorvaleQtHeaders PRIVATE ${CORVALE_QT_OPTIONS})
target_link_libraries(CorvaleQtHeaders PRIVATE Qt6::Widgets)
target_precompile_headers(CorvaleQtHeaders PRIVATE
  <algorithm> <functional> <memory> <optional> <string> <vector>
  <QAbstractScrollArea> <QAccessible> <QApplication> <QHash> <QIcon> <QKeyEvent> <QLabel> <QMenu> <QMouseEvent> <QPainter>
  <QPainterPath> <QPalette> <QString> <QStyle> <QStyleOption> <QTimer> <QToolButton> <QUrl> <QVBoxLayout> <QWidget>)
corvale_warnings(CorvaleQtHeaders)

# A static library on Qt whose headers compile alone.
function(corvale_qt_library target)
  cmake_parse_arguments(PARSE_ARGV 1 module "" "" "HEADERS;SOURCES;LIBRARIES")
  add_library(${target} STATIC)
  target_sources(${target}
    PUBLIC FILE_SET HEADERS BASE_DIRS "${PROJECT_SOURCE_DIR}" FILES ${module_HEADERS}
    PRIVATE ${module_SOURCES})
  set_target_properties(${target} PROPERTIES AUTOMOC ON VERIFY_INTERFACE_HEADER_SETS ON)
  target_compile_features(${target} PUBLIC cxx_std_20)
  target_compile_definitions(${target} PRIVATE ${CORVALE_QT_DEFINITIONS})
  target_compile_options(${target} PRIVATE ${CORVALE_QT_OPTIONS})
  target_link_libraries(${target} PUBLIC ${module_LIBRARIES})
  corvale_warnings(${target})
  if(Qt6::Widgets IN_LIST module_LIBRARIES)
    target_precompile_headers(${target} REUSE_FROM CorvaleQtHeaders)
  endif()
endfunction()
