#error "SQLite belongs to store/ alone"
