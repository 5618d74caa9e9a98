#error "net-snmp belongs to snmp/ alone"
