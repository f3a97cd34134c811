# Run as a script: writes the files explanations/*.txt as a C++ table, so that the installed program
# does not need them.
#
#     cmake -D DIRECTORY=... -D OUTPUT=... -P EmbedExplanations.cmake

file(GLOB files ${DIRECTORY}/*.txt)
set(table "")
foreach(file IN LISTS files)
  get_filename_component(name ${file} NAME_WE)
  file(READ ${file} text)
  string(APPEND table "{\"${name}\",\n R\"explanation(${text})explanation\"},\n")
endforeach()
file(WRITE ${OUTPUT} "${table}")
