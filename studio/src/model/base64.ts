/** Bytes as text. */
export const fromBase64 = (text: string): Uint8Array<ArrayBuffer> => Uint8Array.from(atob(text), (letter) => letter.charCodeAt(0));

export function toBase64(bytes: Uint8Array): string {
    let text = '';
    for (let at = 0; at < bytes.length; at += 0x8000) text += String.fromCharCode(...bytes.subarray(at, at + 0x8000));
    return btoa(text);
}
/** That may stand in an address. */
export const toAddressText = (bytes: Uint8Array): string =>
    toBase64(bytes).replaceAll('+', '-').replaceAll('/', '_').replace(/=+$/, '');
export const fromAddressText = (text: string): Uint8Array<ArrayBuffer> => fromBase64(text.replaceAll('-', '+').replaceAll('_', '/'));
