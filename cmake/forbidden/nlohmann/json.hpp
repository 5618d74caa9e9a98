#error "JSON belongs to documents/ alone"
