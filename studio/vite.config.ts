import preact from '@preact/preset-vite';
import { fileURLToPath } from 'node:url';
import { defineConfig } from 'vite';
import { embedded, oneFile, withoutAddress } from './build/one_file.ts';

const at = (path: string) => fileURLToPath(new URL(path, import.meta.url));
const engine = at('../build/wasm/lib/');
const files = embedded({
    'engine.wasm': `${engine}tremolux_engine.wasm`,
    'push_in.csv': at('../samples/push_in.csv'),
    'whip.csv': at('../samples/whip.csv'),
    'standing.csv': at('../samples/standing.csv'),
});

export default defineConfig({
    plugins: [preact({ devToolsEnabled: false, prefreshEnabled: false }), files, withoutAddress, oneFile()],
    resolve: { alias: { tremolux: `${engine}tremolux.mjs` } },
    build: { target: 'es2022', cssCodeSplit: false, modulePreload: false, outDir: at('../build/studio'), emptyOutDir: true },
    worker: { format: 'iife', plugins: () => [files, withoutAddress] },
});
