add_library(vyr_warnings INTERFACE)
target_compile_options(vyr_warnings INTERFACE -Wall -Wextra -Wpedantic -Wshadow
                                              -Woverloaded-virtual -Werror)

# vyr_component(<target> <PUBLIC|PRIVATE> <folder> [EXCLUDE <file>...])
#
# Gives <target> every source under <folder>, and its headers to whoever may see them. The folder
# is globbed so that a new file joins its component by standing in it: there is no list to keep in
# step, and CONFIGURE_DEPENDS makes the next build notice.
function(vyr_component target visibility folder)
  cmake_parse_arguments(PARSE_ARGV 3 arg "" "" "EXCLUDE")
  cmake_path(ABSOLUTE_PATH folder NORMALIZE)
  file(GLOB_RECURSE files CONFIGURE_DEPENDS ${folder}/*.cpp ${folder}/*.h)

  set(folders)
  foreach(file IN LISTS files)
    cmake_path(GET file PARENT_PATH parent)
    list(APPEND folders ${parent})
  endforeach()
  list(REMOVE_DUPLICATES folders)

  foreach(file IN LISTS arg_EXCLUDE)
    list(REMOVE_ITEM files ${folder}/${file})
  endforeach()

  target_sources(${target} PRIVATE ${files})
  target_include_directories(${target} ${visibility} "$<BUILD_INTERFACE:${folders}>")
  target_link_libraries(${target} PRIVATE $<BUILD_INTERFACE:vyr_warnings>)
endfunction()
