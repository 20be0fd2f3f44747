# Most of the time that a source takes to compile goes into Qt's headers. Targets that draw or show something share one
# precompiled header with them. The first target that asks for it owns it. It must be one without definitions of its own,
# as the others may define more, but not less, and no library of objects, whose users would get the header as one more.
function(share_widget_headers target)
    get_property(owner GLOBAL PROPERTY MEASURETOOLS_WIDGET_HEADERS)
    if(owner)
        target_precompile_headers(${target} REUSE_FROM ${owner})
    else()
        target_precompile_headers(${target} PRIVATE <QAction> <QApplication> <QMap> <QPainter> <QPointer> <QStringList>
                                  <QVariant> <QWidget> <algorithm> <map> <memory> <vector>)
        set_property(GLOBAL PROPERTY MEASURETOOLS_WIDGET_HEADERS ${target})
    endif()
endfunction()

# The same for a library that knows no widgets.
function(precompile_image_headers target)
    target_precompile_headers(${target} PRIVATE <QImage> <QPolygonF> <QStringList> <algorithm> <map> <memory> <vector>)
endfunction()
