# The controls of dialogs are a part of the qt room.
file(GLOB dialog_sources CONFIGURE_DEPENDS "${CMAKE_CURRENT_SOURCE_DIR}/adapters/qt/dialog/*.cpp")
target_sources(qbrpt_qt PRIVATE ${dialog_sources})
