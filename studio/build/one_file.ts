/** Vite plugins that make one HTML file of the page: nothing in it is loaded from elsewhere, and its policy says so. */
import { createHash } from 'node:crypto';
import { readdirSync, readFileSync } from 'node:fs';
import { gzipSync } from 'node:zlib';
import type { Plugin } from 'vite';

const hashOf = (text: string) => `'sha256-${createHash('sha256').update(text).digest('base64')}'`;

/** `import bytes from 'embedded:NAME'`: a file's bytes, gzipped (without a time, so that builds are equal), in base64. */
export function embedded(files: Record<string, string>): Plugin {
    const prefix = 'embedded:';
    return {
        name: 'embedded',
        resolveId: (id) => (id.startsWith(prefix) ? `\0${id}` : undefined),
        load(id) {
            if (!id.startsWith(`\0${prefix}`)) return undefined;
            const file = files[id.slice(prefix.length + 1)];
            if (file === undefined) throw new Error(`${id}: found no such file, expected one of ${Object.keys(files).join(', ')}`);
            this.addWatchFile(file);
            return `export default ${JSON.stringify(gzipSync(readFileSync(file), { level: 9 }).toString('base64'))};`;
        },
    };
}

/** The licences of all packages that came into the bundle, as their files say them. */
function licences(modules: Iterable<string>): string {
    const packages = new Set([...modules].flatMap((id) => /(\/[^\0]*\/node_modules\/(?:@[^/]+\/)?[^/]+)\//.exec(id)?.slice(1) ?? []));
    return [...packages].sort().map((folder) => {
        const { name, version } = JSON.parse(readFileSync(`${folder}/package.json`, 'utf8')) as { name: string; version: string };
        const file = readdirSync(folder).find((one) => /^licen[cs]e/i.test(one)) ?? 'README.md';
        // Some packages have it at the end of what they say about themselves.
        const text = readFileSync(`${folder}/${file}`, 'utf8').replace(/^.*^#+ LICENSE$/ims, '').trim();
        if (!/permission is hereby granted|licen[cs]e/i.test(text)) throw new Error(`${name}: found no licence in its package`);
        return `${name} ${version}\n\n${text}`;
    }).join('\n\n----\n\n').replaceAll('--', '==');
}

/** Script and style go into the page; the policy names them by their hashes, so that no other can run. */
export function oneFile(): Plugin {
    return {
        name: 'one-file',
        enforce: 'post',
        generateBundle(_options, bundle) {
            const page = bundle['index.html'];
            if (page?.type !== 'asset') throw new Error('index.html: found none in the bundle');
            let script = '', style = '';
            for (const [name, part] of Object.entries(bundle)) {
                if (part === page) continue;
                if (part.type === 'chunk') script += part.code;
                else if (name.endsWith('.css')) style += part.source;
                else throw new Error(`${name}: expected script and style alone`);
                delete bundle[name];
            }
            script = script.trim().replaceAll('</script', '<\\/script');
            const policy = [
                "default-src 'none'", `script-src ${hashOf(script)} 'wasm-unsafe-eval'`, `style-src ${hashOf(style)}`,
                'worker-src blob:', 'img-src blob: data:', 'media-src blob:', "base-uri 'none'", "form-action 'none'",
            ].join('; ');
            // Functions, because "$&" in the script is the script's own.
            page.source = String(page.source)
                .replace(/<script type="module"[^>]*><\/script>|<link rel="stylesheet"[^>]*>/g, '')
                .replace('<!--licences-->', () => `<!--\n${licences(this.getModuleIds())}\n-->`)
                .replace('<!--policy-->', () => `<meta http-equiv="Content-Security-Policy" content="${policy}">`)
                .replace('<!--style-->', () => `<style>${style}</style>`)
                .replace('<!--script-->', () => `<script type="module">${script}</script>`);
        },
    };
}

/** The engine's start looks for its bytes beside itself; here they are handed to it, and the page has no place beside it. */
export const withoutAddress: Plugin = {
    name: 'without-address',
    enforce: 'pre',
    transform: (code, id) =>
        id.endsWith('tremolux_engine.mjs') ? code.replace('new URL("tremolux_engine.wasm",import.meta.url).toString()', '"tremolux_engine.wasm"') : undefined,
};
