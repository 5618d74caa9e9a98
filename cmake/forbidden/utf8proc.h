#error "widths of letters belong to documents/ alone"
