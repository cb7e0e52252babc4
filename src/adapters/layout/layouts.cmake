# The layout files of the templates become part of the layout room.
set(folder "${CMAKE_CURRENT_SOURCE_DIR}/templates/layouts")
set(embedded "${CMAKE_CURRENT_BINARY_DIR}/embedded_layouts.cpp")
file(GLOB layouts CONFIGURE_DEPENDS "${folder}/*.toml")
add_custom_command(
  OUTPUT "${embedded}"
  COMMAND "${CMAKE_COMMAND}" -DFOLDER=${folder} -DOUTPUT=${embedded} -P "${CMAKE_CURRENT_LIST_DIR}/embed_layouts.cmake"
  DEPENDS ${layouts} "${CMAKE_CURRENT_LIST_DIR}/embed_layouts.cmake"
  COMMENT "Embedding the layout files" VERBATIM)
target_sources(qbrpt_layout PRIVATE "${embedded}")

# So do their pictures.
set(pictureFolder "${CMAKE_CURRENT_SOURCE_DIR}/templates/pictures")
set(embeddedPictures "${CMAKE_CURRENT_BINARY_DIR}/embedded_pictures.cpp")
file(GLOB pictures CONFIGURE_DEPENDS "${pictureFolder}/*.png")
add_custom_command(
  OUTPUT "${embeddedPictures}"
  COMMAND "${CMAKE_COMMAND}" -DFOLDER=${pictureFolder} -DOUTPUT=${embeddedPictures} -P
          "${CMAKE_CURRENT_LIST_DIR}/embed_pictures.cmake"
  DEPENDS ${pictures} "${CMAKE_CURRENT_LIST_DIR}/embed_pictures.cmake"
  COMMENT "Embedding the pictures of the layouts" VERBATIM)
target_sources(qbrpt_layout PRIVATE "${embeddedPictures}")
