# The icons become part of the qt room.
qt_add_resources(icon_sources "${CMAKE_CURRENT_SOURCE_DIR}/adapters/qt/icons.qrc")
target_sources(qbrpt_qt PRIVATE ${icon_sources})
