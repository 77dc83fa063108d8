# Libraries of the system that few ever need, or nobody before the first weight is seen: each is loaded at the first call
# of one of its functions. To load them all at the start costs time, and memory for as long as the program runs.
set(RETRASADAS "")

# biblioteca_retrasada(NAME FUNCTION...): the functions that are called; another one is taken from the usual library, and
# loads it at the start again.
function(biblioteca_retrasada nombre)
  set(definicion ${CMAKE_CURRENT_BINARY_DIR}/retrasadas/${nombre}.def)
  set(biblioteca ${CMAKE_CURRENT_BINARY_DIR}/retrasadas/lib${nombre}_retrasada.a)
  list(JOIN ARGN "\n" funciones)
  file(GENERATE OUTPUT ${definicion} CONTENT "LIBRARY ${nombre}.dll\nEXPORTS\n${funciones}\n")
  add_custom_command(OUTPUT ${biblioteca} DEPENDS ${definicion} VERBATIM
    COMMAND ${CMAKE_DLLTOOL} --input-def ${definicion} --output-delaylib ${biblioteca})
  add_custom_target(retrasar_${nombre} DEPENDS ${biblioteca})
  add_library(retrasada_${nombre} INTERFACE)
  add_dependencies(retrasada_${nombre} retrasar_${nombre})
  target_link_libraries(retrasada_${nombre} INTERFACE ${biblioteca} delayimp)
  set(RETRASADAS ${RETRASADAS} retrasada_${nombre} PARENT_SCOPE)
endfunction()

if(MINGW)
  biblioteca_retrasada(comctl32 InitCommonControlsEx)
  biblioteca_retrasada(comdlg32 ChooseColorW ChooseFontW)
  biblioteca_retrasada(shlwapi AssocQueryStringW PathFileExistsW)
  biblioteca_retrasada(winmm timeBeginPeriod timeEndPeriod)
  biblioteca_retrasada(wtsapi32 WTSRegisterSessionNotification WTSUnRegisterSessionNotification)
else()
  set(RETRASADAS comctl32 comdlg32 shlwapi winmm wtsapi32)
endif()
