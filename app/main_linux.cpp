// The Linux edition's entry point (being written).
int main() { return 0; }
