import { fileURLToPath } from 'node:url';
import { defineConfig } from 'vitest/config';

export default defineConfig({
    resolve: { alias: { tremolux: fileURLToPath(new URL('../../../build/wasm/lib/tremolux.mjs', import.meta.url)) } },
});
