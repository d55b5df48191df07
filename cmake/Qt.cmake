# partwright_qt(grid)
#
# For a module that uses Qt: moc runs over it, and the strict macros forbid what converts or
# allocates in silence.
function(partwright_qt target)
  set_target_properties(partwright_${target} PROPERTIES AUTOMOC ON)
  target_compile_definitions(partwright_${target} PRIVATE
    QT_NO_CAST_FROM_ASCII
    QT_NO_CAST_TO_ASCII
    QT_NO_CAST_FROM_BYTEARRAY
    QT_NO_URL_CAST_FROM_STRING
    QT_NO_NARROWING_CONVERSIONS_IN_CONNECT
    QT_NO_FOREACH
    QT_NO_KEYWORDS
    QT_STRICT_ITERATORS
    QT_DISABLE_DEPRECATED_BEFORE=0x060400)
endfunction()
