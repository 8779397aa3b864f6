import { defineConfig } from 'vitest/config';

// One browser at a time: the machine has few cores, and each page computes.
export default defineConfig({ test: { fileParallelism: false, testTimeout: 120_000, hookTimeout: 60_000 } });
