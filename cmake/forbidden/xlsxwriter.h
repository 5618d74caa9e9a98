#error "workbooks belong to documents/ alone"
